#include "YV_IIOP/WorkerPool.h"

#include <algorithm>

namespace YV_IIOP {

constexpr std::size_t WorkerPool::default_prompt_threads;
constexpr std::chrono::milliseconds WorkerPool::stuck_time;

WorkerPool::WorkerPool(std::size_t max_threads, std::size_t idle_threads, std::chrono::milliseconds idle_time,
                       std::size_t prompt_threads)
    : m_max(std::max<std::size_t>(max_threads, 1)), m_keep(idle_threads), m_idle_time(idle_time),
      m_prompt(std::max<std::size_t>(prompt_threads, 1))
{
}

WorkerPool::~WorkerPool()
{
    stop();
}

bool WorkerPool::submit(std::function<void()> task)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_stopping)
        return false;
    join_finished(lock);
    m_tasks.push_back(std::move(task));
    const std::size_t live = m_threads.size();
    if (m_tasks.size() <= m_idle || live >= m_max) {
        m_ready.notify_one();
    } else if (live < m_prompt) {
        // A thread for each task that no idle thread will take.
        spawn(&WorkerPool::work);
    } else if (!m_watching) {
        m_watching = true;
        spawn(&WorkerPool::watch);
    } else {
        m_watch.notify_one();
    }
    return true;
}

void WorkerPool::spawn(void (WorkerPool::*body)())
{
    m_threads.emplace_back([this, body] { (this->*body)(); });
}

void WorkerPool::watch()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        m_watch.wait(lock, [this] { return m_stopping || m_tasks.size() > m_idle; });
        if (m_stopping)
            return;
        const std::size_t taken = m_taken;
        lock.unlock();
        std::this_thread::sleep_for(stuck_time);
        lock.lock();
        if (m_taken == taken && m_tasks.size() > m_idle && m_threads.size() < m_max)
            spawn(&WorkerPool::work);
    }
}

void WorkerPool::stop()
{
    std::list<std::thread> threads;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_stopping = true;
        m_ready.notify_all();
        m_watch.notify_all();
        threads.swap(m_threads);
        m_finished.clear();
    }
    for (std::thread& t : threads)
        if (t.get_id() != std::this_thread::get_id())
            t.join();
        else
            t.detach();
}

std::size_t WorkerPool::threads() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_threads.size() - m_finished.size();
}

void WorkerPool::join_finished(std::unique_lock<std::mutex>&)
{
    for (std::thread::id id : m_finished) {
        auto it = std::find_if(m_threads.begin(), m_threads.end(), [id](const std::thread& t) { return t.get_id() == id; });
        if (it != m_threads.end()) {
            it->join();  // it has left work(): the join is immediate
            m_threads.erase(it);
        }
    }
    m_finished.clear();
}

void WorkerPool::work()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        if (m_tasks.empty()) {
            if (m_stopping)
                return;
            ++m_idle;
            const bool woken = m_ready.wait_for(lock, m_idle_time, [this] { return !m_tasks.empty() || m_stopping; });
            --m_idle;
            if (!woken && m_threads.size() - m_finished.size() > m_keep) {
                m_finished.push_back(std::this_thread::get_id());
                return;
            }
            continue;
        }
        std::function<void()> task = std::move(m_tasks.front());
        m_tasks.pop_front();
        ++m_taken;
        lock.unlock();
        try {
            task();
        } catch (...) {
            // A task reports its own failures; the thread serves on.
        }
        task = nullptr;
        lock.lock();
    }
}

} // namespace YV_IIOP
