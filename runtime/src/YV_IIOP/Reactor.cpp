#include "YV_IIOP/Reactor.h"

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

Reactor::Reactor()
{
    m_epoll = ::epoll_create1(EPOLL_CLOEXEC);
    m_wake = ::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    if (m_epoll < 0 || m_wake < 0)
        throw std::system_error(errno, std::generic_category(), "epoll");
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
    std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_thread.joinable()) {
        m_stopping = false;
        m_thread = std::thread([this] { run(); });
    }
}

void Reactor::stop()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_stopping = true;
    }
    wake();
    if (m_thread.joinable() && !on_reactor_thread())
        m_thread.join();
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

void Reactor::add(int fd, std::shared_ptr<Handler> handler)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const std::uint32_t generation = ++m_generation;
    epoll_event e{};
    e.events = EPOLLIN | EPOLLRDHUP;
    e.data.u64 = tag(fd, generation);
    if (::epoll_ctl(m_epoll, EPOLL_CTL_ADD, fd, &e) != 0)
        throw std::system_error(errno, std::generic_category(), "epoll_ctl");
    m_handlers[fd] = Watch{generation, std::move(handler)};
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

void Reactor::wake()
{
    const std::uint64_t one = 1;
    const ssize_t n = ::write(m_wake, &one, sizeof one);
    static_cast<void>(n);
}

void Reactor::run()
{
    std::vector<epoll_event> events(64);
    for (;;) {
        int timeout = -1;
        std::vector<std::function<void()>> work;
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            if (m_stopping)
                return;
            work.swap(m_posted);
            const Clock::time_point now = Clock::now();
            while (!m_timers.empty() && m_timers.begin()->first <= now) {
                work.push_back(std::move(m_timers.begin()->second));
                m_timers.erase(m_timers.begin());
            }
            if (!m_timers.empty()) {
                const auto wait = std::chrono::duration_cast<std::chrono::milliseconds>(m_timers.begin()->first - now);
                timeout = static_cast<int>(wait.count()) + 1;
            }
        }
        for (std::function<void()>& w : work)
            w();
        if (!work.empty())
            timeout = 0;
        const int n = ::epoll_wait(m_epoll, events.data(), static_cast<int>(events.size()), timeout);
        if (n < 0 && errno != EINTR)
            return;
        for (int i = 0; i < n; ++i) {
            const int fd = static_cast<int>(events[i].data.u64 & 0xffffffffu);
            const std::uint32_t generation = static_cast<std::uint32_t>(events[i].data.u64 >> 32);
            if (fd == m_wake) {
                std::uint64_t count;
                while (::read(m_wake, &count, sizeof count) > 0) {
                }
                continue;
            }
            std::shared_ptr<Handler> handler;
            {
                std::lock_guard<std::mutex> lock(m_mutex);
                auto found = m_handlers.find(fd);
                if (found != m_handlers.end() && found->second.generation == generation)
                    handler = found->second.handler;
            }
            if (handler)
                handler->on_ready((events[i].events & (EPOLLHUP | EPOLLERR)) != 0);
        }
    }
}

} // namespace YV_IIOP
