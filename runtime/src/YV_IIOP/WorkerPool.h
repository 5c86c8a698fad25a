// The threads that serve requests. A task finds an idle thread or gets a new
// one while the pool has fewer than `prompt_threads`; beyond, tasks queue
// and a watcher starts one more thread for each millisecond in which no
// queued task was taken (the busy threads are stuck: a servant that calls
// back into its caller, who calls back again), up to `max_threads`, so
// nested calls never wait for one another for long while a burst of quick
// requests does not get a thread each. Threads beyond `idle_threads` that
// had nothing to do for a while end.
#ifndef YV_IIOP_WORKERPOOL_H
#define YV_IIOP_WORKERPOOL_H

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <list>
#include <mutex>
#include <thread>
#include <vector>

namespace YV_IIOP {

class WorkerPool {
public:
    explicit WorkerPool(std::size_t max_threads, std::size_t idle_threads = 4,
                        std::chrono::milliseconds idle_time = std::chrono::seconds(30),
                        std::size_t prompt_threads = default_prompt_threads);
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    // False when the pool is stopped (the task is dropped).
    bool submit(std::function<void()> task);
    // Lets the tasks already given finish, then ends every thread.
    void stop();

    std::size_t threads() const;

    static constexpr std::size_t default_prompt_threads = 16;
    // How long queued tasks may wait without one being taken before the
    // watcher starts a thread.
    static constexpr std::chrono::milliseconds stuck_time{1};

private:
    void work();
    void watch();
    void spawn(void (WorkerPool::*body)());
    void join_finished(std::unique_lock<std::mutex>& lock);

    const std::size_t m_max;
    const std::size_t m_keep;
    const std::chrono::milliseconds m_idle_time;
    const std::size_t m_prompt;
    mutable std::mutex m_mutex;
    std::condition_variable m_ready;
    // The watcher waits on it while no task waits for a thread.
    std::condition_variable m_watch;
    std::deque<std::function<void()>> m_tasks;
    std::list<std::thread> m_threads;
    std::vector<std::thread::id> m_finished;
    std::size_t m_idle = 0;
    // Tasks taken so far (the watcher's measure of progress).
    std::size_t m_taken = 0;
    // The watcher thread is running (it stays until the pool stops).
    bool m_watching = false;
    bool m_stopping = false;
};

} // namespace YV_IIOP

#endif
