#include "YV_IIOP/Reactor.h"

#include <algorithm>
#include <cerrno>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>

namespace YV_IIOP {

namespace {

// The event's data: the descriptor and the generation of its watch, so that
// an event of a descriptor closed and opened again meanwhile is dropped.
std::uint64_t tag(int fd, std::uint32_t generation)
{
    return static_cast<std::uint64_t>(generation) << 32 | static_cast<std::uint32_t>(fd);
}

} // namespace

Reactor::Reactor(std::size_t max_threads, std::size_t idle_threads, std::chrono::milliseconds idle_time)
    : m_max(std::max<std::size_t>(max_threads, 1)), m_keep(std::max<std::size_t>(idle_threads, 1)),
      m_idle_time(idle_time), m_max_holders(m_max > 2 ? std::min(m_max - 2, max_holders) : 0)
{
    m_epoll = ::epoll_create1(EPOLL_CLOEXEC);
    m_wake = ::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    if (m_epoll < 0 || m_wake < 0)
        throw std::system_error(errno, std::generic_category(), "epoll");
    // Level-triggered and never disarmed: once stopping, every thread sees it.
    epoll_event e{};
    e.events = EPOLLIN;
    e.data.u64 = tag(m_wake, 0);
    ::epoll_ctl(m_epoll, EPOLL_CTL_ADD, m_wake, &e);
}

Reactor::~Reactor()
{
    stop();
    ::close(m_wake);
    ::close(m_epoll);
}

void Reactor::start()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_threads.empty()) {
        m_stopping = false;
        spawn(lock);
    }
}

void Reactor::stop()
{
    std::list<std::thread> threads;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_stopping = true;
        threads.swap(m_threads);
        m_finished.clear();
    }
    m_idle.notify_all();
    wake();
    for (std::thread& t : threads)
        if (t.get_id() != std::this_thread::get_id())
            t.join();
        else
            t.detach();  // stopped from work a reactor thread runs: it ends when that returns
    std::map<int, Watch> handlers;
    std::multimap<Clock::time_point, std::function<void()>> timers;
    std::vector<std::function<void()>> posted;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        handlers.swap(m_handlers);
        timers.swap(m_timers);
        posted.swap(m_posted);
    }
    for (auto& h : handlers)
        ::epoll_ctl(m_epoll, EPOLL_CTL_DEL, h.first, nullptr);
}

void Reactor::add(int fd, std::shared_ptr<Handler> handler, Watching what)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (++m_generation == 0)
        ++m_generation;  // 0 means no watch
    const std::uint32_t generation = m_generation;
    const std::uint32_t events = what == hangup_only ? EPOLLRDHUP : EPOLLIN | EPOLLRDHUP;
    epoll_event e{};
    e.events = events | EPOLLONESHOT;
    e.data.u64 = tag(fd, generation);
    if (::epoll_ctl(m_epoll, EPOLL_CTL_ADD, fd, &e) != 0)
        throw std::system_error(errno, std::generic_category(), "epoll_ctl");
    m_handlers[fd] = Watch{generation, events, what == held, std::move(handler)};
}

void Reactor::remove(int fd)
{
    std::shared_ptr<Handler> dropped;
    std::lock_guard<std::mutex> lock(m_mutex);
    auto found = m_handlers.find(fd);
    if (found == m_handlers.end())
        return;
    ::epoll_ctl(m_epoll, EPOLL_CTL_DEL, fd, nullptr);
    // The handler may be the caller: it goes after the lock, not in it.
    dropped = std::move(found->second.handler);
    m_handlers.erase(found);
}

void Reactor::rearm(int fd, std::uint32_t generation)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    rearm_locked(fd, generation);
}

void Reactor::rearm_locked(int fd, std::uint32_t generation)
{
    auto found = m_handlers.find(fd);
    if (found == m_handlers.end() || found->second.generation != generation)
        return;  // removed meanwhile
    epoll_event e{};
    e.events = found->second.events | EPOLLONESHOT;
    e.data.u64 = tag(fd, generation);
    ::epoll_ctl(m_epoll, EPOLL_CTL_MOD, fd, &e);
}

void Reactor::post(std::function<void()> work)
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_posted.push_back(std::move(work));
    }
    wake();
}

void Reactor::post_after(Clock::duration delay, std::function<void()> work)
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_timers.emplace(Clock::now() + delay, std::move(work));
    }
    wake();
}

void Reactor::handle(const std::shared_ptr<Handler>& handler, bool hangup, int fd, std::uint32_t generation,
                     bool holdable)
{
    Later later;
    handler->on_ready(hangup, later);
    if (later.empty()) {
        if (generation != 0)
            rearm(fd, generation);
        return;
    }
    Holder holder;
    holder.fd = fd;
    holder.generation = generation;
    if (keep_followers(holdable ? &holder : nullptr)) {
        hold(handler, later, holder);
        done_with_work(&holder);
        return;
    }
    if (generation != 0)
        rearm(fd, generation);
    run_work(later);
    done_with_work(nullptr);
}

void Reactor::hold(const std::shared_ptr<Handler>& handler, Later& later, Holder& holder)
{
    for (;;) {
        run_work(later);
        int serving = Holder::serving;
        if (!holder.state.compare_exchange_strong(serving, Holder::waiting))
            return;  // the standby watches the socket again
        if (m_stopping) {
            rearm(holder.fd, holder.generation);
            return;
        }
        switch (handler->hold(later)) {
        case work:
            if (!later.empty()) {
                holder.served.fetch_add(1);
                holder.state.store(Holder::serving);
                continue;
            }
            break;
        case idle:
            break;
        case ended:
            return;
        }
        rearm(holder.fd, holder.generation);
        return;
    }
}

void Reactor::run_work(Later& later)
{
    for (std::function<void()>& w : later) {
        try {
            w();
        } catch (...) {
            // Work reports its own failures; the thread goes on.
        }
    }
    later.clear();
}

void Reactor::wake()
{
    const std::uint64_t one = 1;
    const ssize_t n = ::write(m_wake, &one, sizeof one);
    static_cast<void>(n);
}

void Reactor::spawn(std::unique_lock<std::mutex>&)
{
    for (std::thread::id id : m_finished) {
        auto it = std::find_if(m_threads.begin(), m_threads.end(),
                               [id](const std::thread& t) { return t.get_id() == id; });
        if (it != m_threads.end()) {
            it->join();  // it has left run(): the join is immediate
            m_threads.erase(it);
        }
    }
    m_finished.clear();
    if (!m_stopping && m_threads.size() < m_max)
        m_threads.emplace_back([this] { run(); });
}

bool Reactor::follow(std::unique_lock<std::mutex>& lock)
{
    if (m_standing_by) {
        // Another thread stands by: sleep until it takes over, or end after
        // a while without work.
        if (m_idle.wait_for(lock, m_idle_time) == std::cv_status::timeout && !m_stopping
            && m_threads.size() - m_finished.size() > m_keep) {
            m_finished.push_back(std::this_thread::get_id());
            return false;
        }
        return true;
    }
    // Take over when the leader has been away (serving what it read) for a
    // whole takeover time: neither back in epoll_wait nor replaced. Its
    // short absences (a quick request) go unnoticed, so the same thread
    // keeps serving a connection and nobody wakes for nothing.
    m_standing_by = true;
    bool away = false;
    bool watching = false;
    Clock::time_point looked;
    std::uint64_t turn = 0;
    for (;;) {
        m_idle.wait_for(lock, away || watching ? takeover_time : watch_time);
        if (m_stopping)
            break;
        if (m_lead_now) {
            m_lead_now = false;
            if (!m_leader)
                break;
        }
        if (!m_leader && away && turn == m_leader_turns)
            break;
        away = !m_leader;
        turn = m_leader_turns;
        // A holder seen serving one request is released when it still
        // serves that request a whole takeover time later.
        const Clock::time_point now = Clock::now();
        if (!watching || now - looked >= takeover_time) {
            watching = release_stuck_holders(watching);
            looked = now;
        }
    }
    m_standing_by = false;
    // One of the sleeping threads stands by next.
    m_idle.notify_one();
    return true;
}

bool Reactor::keep_followers(Holder* holder)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    ++m_busy;
    const bool holding = holder != nullptr && !m_stopping && m_holders.size() < m_max_holders;
    // One free thread leads; while threads hold sockets, another stands by
    // to watch them.
    const std::size_t free = holding || !m_holders.empty() ? 2 : 1;
    while (!m_stopping && m_threads.size() < m_max && m_threads.size() - m_finished.size() < m_busy + free)
        spawn(lock);
    if (!holding)
        return false;
    m_holders.push_back(holder);
    if (!m_leader) {
        // This thread led and stays away: the standby leads now.
        m_lead_now = true;
        m_idle.notify_all();
    }
    return true;
}

void Reactor::done_with_work(Holder* holder)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    --m_busy;
    if (holder != nullptr)
        m_holders.erase(std::find(m_holders.begin(), m_holders.end(), holder));
}

bool Reactor::release_stuck_holders(bool confirm)
{
    bool watching = false;
    for (Holder* h : m_holders) {
        const std::uint64_t served = h->served.load();
        const bool serving = h->state.load() == Holder::serving;
        if (!serving || (confirm && h->seen != served)) {
            h->seen = Holder::no_request;
            continue;
        }
        if (!confirm) {
            h->seen = served;
            watching = true;
            continue;
        }
        int expected = Holder::serving;
        if (h->state.compare_exchange_strong(expected, Holder::released))
            rearm_locked(h->fd, h->generation);
        h->seen = Holder::no_request;
    }
    return watching;
}

void Reactor::run()
{
    epoll_event event{};
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        if (m_stopping)
            return;
        std::vector<std::function<void()>> work;
        work.swap(m_posted);
        const Clock::time_point now = Clock::now();
        while (!m_timers.empty() && m_timers.begin()->first <= now) {
            work.push_back(std::move(m_timers.begin()->second));
            m_timers.erase(m_timers.begin());
        }
        if (!work.empty()) {
            lock.unlock();
            for (std::function<void()>& w : work)
                w();
            work.clear();
            lock.lock();
            continue;
        }
        if (m_leader) {
            if (!follow(lock))
                return;
            continue;
        }
        m_leader = true;
        ++m_leader_turns;
        auto wait = m_idle_time;
        const bool timers = !m_timers.empty();
        if (timers)
            wait = std::min(wait, std::chrono::duration_cast<std::chrono::milliseconds>(m_timers.begin()->first - now) +
                                      std::chrono::milliseconds(1));
        lock.unlock();
        const int n = ::epoll_wait(m_epoll, &event, 1, static_cast<int>(wait.count()));
        lock.lock();
        m_leader = false;
        if (n < 0 && errno != EINTR)
            return;
        if (n == 0 && !timers && m_threads.size() - m_finished.size() > m_keep) {
            // Nothing to do for a while, and enough threads without this one.
            m_finished.push_back(std::this_thread::get_id());
            return;
        }
        if (n <= 0)
            continue;
        const int fd = static_cast<int>(event.data.u64 & 0xffffffffu);
        const std::uint32_t generation = static_cast<std::uint32_t>(event.data.u64 >> 32);
        if (fd == m_wake) {
            if (m_stopping)
                return;
            std::uint64_t count;
            while (::read(m_wake, &count, sizeof count) > 0) {
            }
            continue;
        }
        std::shared_ptr<Handler> handler;
        bool holdable = false;
        auto found = m_handlers.find(fd);
        if (found != m_handlers.end() && found->second.generation == generation) {
            handler = found->second.handler;
            holdable = found->second.holdable;
        }
        lock.unlock();
        if (handler) {
            handle(handler, (event.events & (EPOLLHUP | EPOLLERR)) != 0, fd, generation, holdable);
            handler.reset();
        }
        lock.lock();
    }
}

} // namespace YV_IIOP
