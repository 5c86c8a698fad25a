// The transport's worker pool: tasks that wait for one another still get
// threads beyond the prompt ones, and a burst of quick tasks does not get a
// thread each.
#include "YV_IIOP/WorkerPool.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace {

using YV_IIOP::WorkerPool;

TEST(WorkerPool, TasksWaitingForLaterOnesGetThreadsBeyondThePromptOnes)
{
    // Every task waits until all have started: only as many threads as
    // tasks end it, and the pool starts only two at once.
    const int tasks = 12;
    WorkerPool pool(64, 1, std::chrono::seconds(30), 2);
    std::mutex mutex;
    std::condition_variable all_in;
    int started = 0;
    int finished = 0;
    for (int i = 0; i < tasks; ++i)
        ASSERT_TRUE(pool.submit([&] {
            std::unique_lock<std::mutex> lock(mutex);
            if (++started == tasks)
                all_in.notify_all();
            all_in.wait_for(lock, std::chrono::seconds(20), [&] { return started == tasks; });
            ++finished;
            all_in.notify_all();
        }));
    std::unique_lock<std::mutex> lock(mutex);
    EXPECT_TRUE(all_in.wait_for(lock, std::chrono::seconds(10), [&] { return finished == tasks; }));
    lock.unlock();
    pool.stop();
}

TEST(WorkerPool, ABurstOfQuickTasksSharesAFewThreads)
{
    const int tasks = 2000;
    WorkerPool pool(1024, 1, std::chrono::seconds(30), 4);
    std::atomic<int> done{0};
    for (int i = 0; i < tasks; ++i)
        ASSERT_TRUE(pool.submit([&] { ++done; }));
    for (int i = 0; i < 3000 && done < tasks; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(tasks, done.load());
    // The prompt threads and the watcher, and one more for each millisecond
    // the machine left them all without a processor.
    EXPECT_LT(pool.threads(), 200u);
    pool.stop();
}

} // namespace
