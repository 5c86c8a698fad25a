// Load on a Probe server: many client connections at once, each making
// calls and checking every reply. All connections are open before the first
// call, and no connection goes on past its first burst before every
// connection has had its first replies, so the server must serve them all
// at the same time (a server taking one connection after the other never
// gets past the first). Each connection sends its calls in bursts of several
// pipelined requests (add() and bounce() of a few hundred octets) and
// matches the replies by request id.
//
// giop_load <file holding the server's IOR> [connections] [calls per connection]
// (defaults 200 and 100). Prints a summary; exits 0 when every reply was right.
#include "CdrReader.h"
#include "CdrWriter.h"
#include "Connection.h"
#include "Message.h"
#include "ObjectAddress.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

using namespace giop;

namespace {

const int burst = 4;
const int answer_ms = 30000;

// Waits until all connections are open.
class Gate {
public:
    explicit Gate(int count) : m_left(count) {}
    void arrive_and_wait()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        if (--m_left <= 0)
            m_open.notify_all();
        else
            m_open.wait(lock, [this] { return m_left <= 0; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_open;
    int m_left;
};

std::vector<std::uint8_t> payload(std::uint32_t seed)
{
    std::vector<std::uint8_t> data(100 + seed % 400);
    for (std::size_t i = 0; i < data.size(); ++i)
        data[i] = static_cast<std::uint8_t>(seed * 31 + i);
    return data;
}

// What the reply to request `id` must carry.
struct Expected {
    bool bounce;
    std::int32_t sum;
    std::vector<std::uint8_t> data;
};

std::string check_reply(const Message& m, const std::map<std::uint32_t, Expected>& pending,
                        std::uint32_t& id)
{
    if (m.type() != reply_message)
        return "message type " + std::to_string(m.type());
    const Reply r = parse_reply(m);
    id = r.id;
    const auto it = pending.find(r.id);
    if (it == pending.end())
        return "a reply to request " + std::to_string(r.id) + ", which is not waiting";
    if (r.status != no_exception)
        return "status " + std::to_string(r.status) + " " + r.exception_id;
    if (!it->second.bounce)
        return add_result(m, r) == it->second.sum ? "" : "add() answered a wrong sum";
    CdrReader in(m.bytes, m.little_endian(), r.body);
    return in.octets() == it->second.data ? "" : "bounce() answered other octets";
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2 || argc > 4) {
        std::fprintf(stderr, "usage: giop_load <IOR file> [connections] [calls per connection]\n");
        return 2;
    }
    const int connections = argc > 2 ? std::atoi(argv[2]) : 200;
    const int calls = argc > 3 ? std::atoi(argv[3]) : 100;
    ObjectAddress target;
    try {
        target = ObjectAddress::from_file(argv[1]);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "giop_load: %s\n", e.what());
        return 2;
    }

    Gate all_open(connections);
    Gate all_answered(connections);
    std::atomic<long> right(0);
    std::atomic<int> opened(0);
    std::mutex problems_mutex;
    std::vector<std::string> problems;
    const auto problem = [&](int client, const std::string& text) {
        std::lock_guard<std::mutex> lock(problems_mutex);
        problems.push_back("connection " + std::to_string(client) + ": " + text);
    };

    const auto start = std::chrono::steady_clock::now();
    std::vector<std::thread> threads;
    for (int client = 0; client < connections; ++client)
        threads.emplace_back([&, client] {
            std::unique_ptr<Connection> c;
            try {
                c.reset(new Connection(target.host, target.port));
                ++opened;
            } catch (const std::exception& e) {
                problem(client, e.what());
            }
            all_open.arrive_and_wait();
            bool first_burst = true;
            // Passes the second gate whatever happens to this connection.
            const auto answered = [&] {
                if (first_burst)
                    all_answered.arrive_and_wait();
                first_burst = false;
            };
            if (!c) {
                answered();
                return;
            }
            try {
                std::uint32_t id = 1;
                for (int done = 0; done < calls;) {
                    std::map<std::uint32_t, Expected> pending;
                    std::vector<std::uint8_t> out;
                    for (int k = 0; k < burst && done < calls; ++k, ++done, ++id) {
                        Request r;
                        const bool little = (client + id) % 2 == 0;
                        if (id % 3 == 0) {
                            Expected e{true, 0, payload(static_cast<std::uint32_t>(client) * 7919u + id)};
                            r.little_endian = little;
                            r.id = id;
                            r.key = target.key;
                            r.operation = "bounce";
                            r.arguments = [data = e.data](CdrWriter& w) { w.octets(data); };
                            pending[id] = e;
                        } else {
                            const std::int32_t a = client * 100000, b = static_cast<std::int32_t>(id);
                            r = add_request(Version{1, 2}, little, id, target.key, a, b);
                            pending[id] = Expected{false, a + b, {}};
                        }
                        const std::vector<std::uint8_t> bytes = encode(r);
                        out.insert(out.end(), bytes.begin(), bytes.end());
                    }
                    if (!c->send(out)) {
                        problem(client, "the server closed the connection");
                        answered();
                        return;
                    }
                    for (std::size_t left = pending.size(); left > 0; --left) {
                        Message m;
                        const Connection::Outcome o = c->receive(m, answer_ms);
                        if (o != Connection::received) {
                            problem(client, o == Connection::timed_out ? "no reply" : "connection lost");
                            answered();
                            return;
                        }
                        std::uint32_t reply_id = 0;
                        const std::string wrong = check_reply(m, pending, reply_id);
                        if (!wrong.empty()) {
                            problem(client, wrong);
                            answered();
                            return;
                        }
                        pending.erase(reply_id);
                        ++right;
                    }
                    answered();
                }
            } catch (const std::exception& e) {
                problem(client, e.what());
                answered();
            }
        });
    for (std::thread& t : threads)
        t.join();
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();

    for (const std::string& p : problems)
        std::printf("FAIL %s\n", p.c_str());
    std::printf("== %d of %d connections open at once, %ld of %ld replies right, %.2f s\n", opened.load(),
                connections, right.load(), static_cast<long>(connections) * calls, seconds);
    return problems.empty() && right == static_cast<long>(connections) * calls ? 0 : 1;
}
