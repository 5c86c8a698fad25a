// The event loop of the transport: one thread waits (epoll) for sockets to
// become readable and calls their handlers; other threads post work and
// timers to it. Handlers run on the reactor's thread only, one at a time,
// so they never block: what takes time goes to the worker pool.
#ifndef YV_IIOP_REACTOR_H
#define YV_IIOP_REACTOR_H

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace YV_IIOP {

class Reactor {
public:
    typedef std::chrono::steady_clock Clock;

    class Handler {
    public:
        virtual ~Handler() = default;
        // The socket is readable, or closed or in error (`hangup`).
        virtual void on_ready(bool hangup) = 0;
    };

    Reactor();
    ~Reactor();
    Reactor(const Reactor&) = delete;
    Reactor& operator=(const Reactor&) = delete;

    void start();
    // Stops the thread (waits for it); handlers are dropped.
    void stop();
    bool on_reactor_thread() const { return std::this_thread::get_id() == m_thread.get_id(); }

    // Watches `fd` for input until remove (the reactor keeps `handler`).
    void add(int fd, std::shared_ptr<Handler> handler);
    void remove(int fd);
    // Runs `work` on the reactor's thread, at once or after `delay`.
    void post(std::function<void()> work);
    void post_after(Clock::duration delay, std::function<void()> work);

private:
    void run();
    void wake();

    int m_epoll = -1;
    int m_wake = -1;
    std::thread m_thread;
    std::mutex m_mutex;
    bool m_stopping = false;
    std::uint32_t m_generation = 0;
    struct Watch {
        std::uint32_t generation;
        std::shared_ptr<Handler> handler;
    };
    std::map<int, Watch> m_handlers;
    std::vector<std::function<void()>> m_posted;
    std::multimap<Clock::time_point, std::function<void()>> m_timers;
};

} // namespace YV_IIOP

#endif
