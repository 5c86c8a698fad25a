// The threads that serve requests. A task finds an idle thread or gets a new
// one, up to `max_threads` (then it waits for a thread to come free): a
// servant that calls back into its caller, who calls back again, keeps
// getting threads, so nested calls never wait for one another. Threads
// beyond `idle_threads` that had nothing to do for a while end.
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
                        std::chrono::milliseconds idle_time = std::chrono::seconds(30));
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    // False when the pool is stopped (the task is dropped).
    bool submit(std::function<void()> task);
    // Lets the tasks already given finish, then ends every thread.
    void stop();

    std::size_t threads() const;

private:
    void work();
    void join_finished(std::unique_lock<std::mutex>& lock);

    const std::size_t m_max;
    const std::size_t m_keep;
    const std::chrono::milliseconds m_idle_time;
    mutable std::mutex m_mutex;
    std::condition_variable m_ready;
    std::deque<std::function<void()>> m_tasks;
    std::list<std::thread> m_threads;
    std::vector<std::thread::id> m_finished;
    std::size_t m_idle = 0;
    bool m_stopping = false;
};

} // namespace YV_IIOP

#endif
