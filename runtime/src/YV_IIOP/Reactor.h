// The event loop of the transport: threads wait (epoll) for sockets to
// become ready and call their handlers; other threads post work and timers
// to it.
//
// One thread at a time (the leader) waits in epoll_wait; sockets are watched
// one-shot, so a handler never runs twice at once for one socket. A handler
// may hand back work that takes time (serving a request it read): the
// thread that read it runs it (no switch of thread). For a socket watched
// `held` (a connection a client opened) that thread then stays with the
// socket and waits in a read of its own for the next input, as long as
// input keeps coming, while the next leader watches the other sockets: a
// request costs a read and a send, without epoll_wait, and the thread that
// sent the reply is the one the next request wakes. Another thread stands
// by: when the leader stays away for a while, it takes the leader's place,
// and when a thread holding a socket serves one request for a while (a
// servant calling back into its caller, who calls back again on the same
// connection), it watches that socket again, so the callback is read; a
// new thread is started when fewer than two are free, up to the limit.
// Threads beyond `idle_threads` end after `idle_time` without events.
#ifndef YV_IIOP_REACTOR_H
#define YV_IIOP_REACTOR_H

#include <atomic>
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
    // Work a handler hands back, run by the thread that called it.
    typedef std::vector<std::function<void()>> Later;

    // What a thread holding a socket found: work (in `later`), nothing
    // for a while (the socket is watched again), or the socket's end (no
    // longer watched).
    enum Held { work, idle, ended };

    class Handler {
    public:
        virtual ~Handler() = default;
        // The socket is ready, or closed or in error (`hangup`).
        virtual void on_ready(bool hangup, Later& later) = 0;
        // Sockets watched `held`: waits for the socket's next input (a
        // blocking read that gives up after a short while) and reads it.
        virtual Held hold(Later& later)
        {
            static_cast<void>(later);
            return idle;
        }
    };

    // What a socket is watched for: input (and its end), or only its end;
    // `held`: input, and the thread that ran the work the handler handed
    // back may stay with the socket (above). All one-shot: a socket is
    // watched again when its handler is done with it.
    enum Watching { input, hangup_only, held };

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

    // At most this many threads hold sockets at once (beyond, a socket is
    // watched again before its work runs).
    static constexpr std::size_t max_holders = 64;

private:
    // A thread holding a socket: it serves what the socket brought, or
    // waits for more. The standby watches it again when one request has been
    // served for a whole takeover time (`released`; the holder then lets go).
    struct Holder {
        enum State { serving, waiting, released };
        int fd;
        std::uint32_t generation;
        std::atomic<int> state{serving};
        std::atomic<std::uint64_t> served{0};
        // The standby's last look: the request it saw being served.
        std::uint64_t seen = no_request;
        static constexpr std::uint64_t no_request = ~std::uint64_t(0);
    };

    void run();
    void wake();
    void rearm(int fd, std::uint32_t generation);
    void rearm_locked(int fd, std::uint32_t generation);
    // Runs a handler for an event and then the work it handed back;
    // `generation` 0: nothing to watch again. `holdable`: the socket is
    // watched `held`.
    void handle(const std::shared_ptr<Handler>& handler, bool hangup, int fd, std::uint32_t generation,
                bool holdable);
    // Serves a held socket until its thread lets go of it.
    void hold(const std::shared_ptr<Handler>& handler, Later& later, Holder& holder);
    static void run_work(Later& later);
    // Before a thread runs work handed back: two other threads are free
    // (one to lead, one to stand by), new ones if needed (and allowed).
    // `holder`: the thread will hold its socket (false when too many do).
    bool keep_followers(Holder* holder);
    void done_with_work(Holder* holder);
    // The standby's look at the holders: releases those that served one
    // request since the last look (`confirm`); true when one is being
    // watched that way.
    bool release_stuck_holders(bool confirm);
    // A thread while another one waits for events (the leader); false when
    // the thread ends.
    bool follow(std::unique_lock<std::mutex>& lock);
    void spawn(std::unique_lock<std::mutex>& lock);

    const std::size_t m_max;
    const std::size_t m_keep;
    const std::chrono::milliseconds m_idle_time;
    const std::size_t m_max_holders;
    int m_epoll = -1;
    int m_wake = -1;
    mutable std::mutex m_mutex;
    std::atomic<bool> m_stopping{false};
    std::list<std::thread> m_threads;
    std::vector<std::thread::id> m_finished;
    // Threads running work handed back (the others wait for events).
    std::size_t m_busy = 0;
    // One thread at a time waits in epoll_wait (the leader); one other
    // stands by to take its place when it stays away, the others sleep.
    bool m_leader = false;
    std::uint64_t m_leader_turns = 0;
    bool m_standing_by = false;
    // A thread that led now holds a socket: the standby leads at once.
    bool m_lead_now = false;
    std::vector<Holder*> m_holders;
    std::condition_variable m_idle;
    static constexpr std::chrono::milliseconds watch_time{5};
    static constexpr std::chrono::milliseconds takeover_time{1};
    std::uint32_t m_generation = 0;
    struct Watch {
        std::uint32_t generation;
        std::uint32_t events;
        bool holdable;
        std::shared_ptr<Handler> handler;
    };
    std::map<int, Watch> m_handlers;
    std::vector<std::function<void()>> m_posted;
    std::multimap<Clock::time_point, std::function<void()>> m_timers;
};

} // namespace YV_IIOP

#endif
