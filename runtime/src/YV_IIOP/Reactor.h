// The event loop of the transport: threads wait (epoll) for sockets to
// become ready and call their handlers; other threads post work and timers
// to it.
//
// One thread at a time (the leader) waits in epoll_wait; a socket's event
// goes to it, and a one-shot socket is not watched again until its handler
// returns, so a handler never runs twice at once for one socket. A handler
// may hand back work that takes time (serving a request it read): the
// leader runs it itself (no switch of thread) and goes back to epoll_wait,
// so the thread that serves a connection is the one that wakes for its
// next request. Meanwhile another thread stands by: when the leader stays
// away for a while (a servant calling back into its caller, who calls
// back again), it takes the leader's place, so the callback is read; a new
// thread is started when every thread is busy, up to the limit. Threads
// beyond `idle_threads` end after `idle_time` without events.
#ifndef YV_IIOP_REACTOR_H
#define YV_IIOP_REACTOR_H

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace YV_IIOP {

class Reactor {
public:
    typedef std::chrono::steady_clock Clock;
    // Work a handler hands back, run after its socket is watched again.
    typedef std::vector<std::function<void()>> Later;

    class Handler {
    public:
        virtual ~Handler() = default;
        // The socket is ready, or closed or in error (`hangup`).
        virtual void on_ready(bool hangup, Later& later) = 0;
    };

    // What a socket is watched for: input (and its end), or only its end;
    // these are watched one-shot (above). `stream`: input, edge-triggered
    // and never watched again: an event comes when new octets come, the
    // handler may be called on several threads at once and lets one of them
    // read (no epoll_ctl per message); `hangup` also says that the peer
    // closed its side (read to the end now); a handler that stops before it
    // has read everything calls again().
    enum Watching { input, hangup_only, stream };

    explicit Reactor(std::size_t max_threads = 1024, std::size_t idle_threads = 4,
                     std::chrono::milliseconds idle_time = std::chrono::seconds(30));
    ~Reactor();
    Reactor(const Reactor&) = delete;
    Reactor& operator=(const Reactor&) = delete;

    void start();
    // Stops the threads (waits for them, and for the work they run);
    // handlers are dropped.
    void stop();

    // Watches `fd` until remove (the reactor keeps `handler`).
    void add(int fd, std::shared_ptr<Handler> handler, Watching what = input);
    void remove(int fd);
    // Runs `work` on one of the reactor's threads, at once or after `delay`.
    void post(std::function<void()> work);
    void post_after(Clock::duration delay, std::function<void()> work);
    // Calls `handler` again on a reactor thread, as for an event.
    void again(std::shared_ptr<Handler> handler);

private:
    void run();
    void wake();
    void rearm(int fd, std::uint32_t generation);
    // Runs a handler for an event and then the work it handed back;
    // `generation` 0: nothing to watch again.
    void handle(const std::shared_ptr<Handler>& handler, bool hangup, int fd, std::uint32_t generation);
    // Before a thread runs work handed back: another thread waits for
    // events, a new one if needed (and allowed).
    void keep_a_follower();
    // A thread while another one waits for events (the leader); false when
    // the thread ends.
    bool follow(std::unique_lock<std::mutex>& lock);
    void spawn(std::unique_lock<std::mutex>& lock);

    const std::size_t m_max;
    const std::size_t m_keep;
    const std::chrono::milliseconds m_idle_time;
    int m_epoll = -1;
    int m_wake = -1;
    mutable std::mutex m_mutex;
    bool m_stopping = false;
    std::list<std::thread> m_threads;
    std::vector<std::thread::id> m_finished;
    // Threads running work handed back (the others wait for events).
    std::size_t m_busy = 0;
    // One thread at a time waits in epoll_wait (the leader); one other
    // stands by to take its place when it stays away, the others sleep.
    bool m_leader = false;
    std::uint64_t m_leader_turns = 0;
    bool m_standing_by = false;
    std::condition_variable m_idle;
    static constexpr std::chrono::milliseconds watch_time{5};
    static constexpr std::chrono::milliseconds takeover_time{1};
    std::uint32_t m_generation = 0;
    struct Watch {
        std::uint32_t generation;
        std::uint32_t events;
        std::shared_ptr<Handler> handler;
    };
    std::map<int, Watch> m_handlers;
    std::vector<std::function<void()>> m_posted;
    std::multimap<Clock::time_point, std::function<void()>> m_timers;
};

} // namespace YV_IIOP

#endif
