// A large generated IDL file: every dispatch function the header declares
// is defined exactly once, every table entry names a defined function, and
// each table holds exactly the keys its interface can receive, each once,
// where the runtime's search finds it.
#include "PoaTestSupport.h"
#include "TableReader.h"

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct Model {
    std::string idl;
    // Skeleton class (POA_G1::I7) -> every key it can receive.
    std::map<std::string, std::set<std::string>> keys;
    // Skeleton class -> the dispatch functions it declares itself.
    std::map<std::string, std::multiset<std::string>> own_functions;
};

// Interfaces I0..I(n-1), spread over modules; each derives from up to three
// earlier ones, which gives deep chains and many diamonds.
Model make_model(int modules, int per_module)
{
    Model m;
    const int n = modules * per_module;
    std::vector<std::string> scoped(n), skeleton(n);
    std::vector<std::vector<int>> bases(n);
    std::vector<std::set<std::string>> own_keys(n);
    std::ostringstream idl;
    for (int k = 0; k < n; ++k) {
        const int mod = k / per_module;
        const std::string name = "I" + std::to_string(k);
        scoped[k] = "G" + std::to_string(mod) + "::" + name;
        skeleton[k] = "POA_G" + std::to_string(mod) + "::" + name;
        if (k % per_module == 0)
            idl << (k ? "};\n" : "") << "module G" << mod << " {\n";
        if (k >= 1 && k % 7 != 0)
            bases[k].push_back(k - 1);
        if (k >= 2 && k % 3 == 0)
            bases[k].push_back(k - 2);
        if (k >= 11 && k % 5 == 0)
            bases[k].push_back(k - 11);
        idl << "    interface " << name;
        for (std::size_t b = 0; b < bases[k].size(); ++b)
            idl << (b ? ", " : " : ") << "::" << scoped[bases[k][b]];
        idl << " {\n";
        const std::string s = std::to_string(k);
        idl << "        void op" << s << "(in long a, out string b);\n";
        own_keys[k].insert("op" + s);
        m.own_functions[skeleton[k]].insert("op" + s + "_yvgen_dispatch");
        if (k % 2 == 0) {
            idl << "        attribute long at" << s << ";\n";
            own_keys[k].insert({"_get_at" + s, "_set_at" + s});
            m.own_functions[skeleton[k]].insert({"_get_at" + s + "_yvgen_dispatch", "_set_at" + s + "_yvgen_dispatch"});
        }
        if (k % 3 == 0) {
            idl << "        readonly attribute string ro" << s << ";\n";
            own_keys[k].insert("_get_ro" + s);
            m.own_functions[skeleton[k]].insert("_get_ro" + s + "_yvgen_dispatch");
        }
        idl << "    };\n";
        std::set<std::string>& all = m.keys[skeleton[k]];
        all = {"_interface", "_is_a", "_non_existent"};
        all.insert(own_keys[k].begin(), own_keys[k].end());
        for (int b : bases[k]) {
            const std::set<std::string>& inherited = m.keys[skeleton[b]];
            all.insert(inherited.begin(), inherited.end());
        }
    }
    idl << "};\n";
    m.idl = idl.str();
    return m;
}

// Skeleton class -> dispatch functions declared in the header. Classes are
// named inside their POA_ scope, so the scope is tracked too.
std::map<std::string, std::multiset<std::string>> declared(const std::string& hh)
{
    static const std::regex scope(R"(^\s*(?:namespace|class) (POA_G\d+)\s*$)");
    static const std::regex cls(R"(^\s*class (I\d+) :$)");
    static const std::regex fn(R"(^\s*(\w+_yvgen_dispatch)\($)");
    std::map<std::string, std::multiset<std::string>> found;
    std::string outer, current;
    std::istringstream in(hh);
    for (std::string line; std::getline(in, line);) {
        std::smatch m;
        if (std::regex_match(line, m, scope))
            outer = m[1];
        else if (std::regex_match(line, m, cls))
            current = outer + "::" + std::string(m[1]);
        else if (std::regex_match(line, m, fn))
            found[current].insert(m[1]);
    }
    return found;
}

// Skeleton class -> dispatch functions defined in the implementation file.
std::map<std::string, std::multiset<std::string>> defined(const std::string& cxx)
{
    static const std::regex fn(R"(^(POA_\w+::\w+)::(\w+_yvgen_dispatch)\($)");
    std::map<std::string, std::multiset<std::string>> found;
    std::istringstream in(cxx);
    std::string previous;
    for (std::string line; std::getline(in, line); previous = line) {
        std::smatch m;
        if (previous == "void" && std::regex_match(line, m, fn))
            found[m[1]].insert(m[2]);
    }
    return found;
}

TEST(Consistency, LargeInheritanceGraph)
{
    const Model model = make_model(6, 50);
    poatest::PoaRun run = poatest::run_poa(model.idl, nullptr);
    ASSERT_TRUE(run.parsed) << run.err;
    ASSERT_TRUE(run.hh_written && run.cxx_written) << run.err;
    EXPECT_EQ("", run.err);

    EXPECT_EQ(model.own_functions, declared(run.hh));
    const std::map<std::string, std::multiset<std::string>> definitions = defined(run.cxx);
    EXPECT_EQ(model.own_functions, definitions);

    const std::map<std::string, tabletest::Table> tables = tabletest::read_tables(run.cxx);
    ASSERT_EQ(model.keys.size(), tables.size());
    std::vector<std::string> problems;
    for (const auto& t : tables) {
        const std::vector<std::string> keys = tabletest::searchable_keys(t.second, problems);
        EXPECT_EQ(model.keys.at(t.first), std::set<std::string>(keys.begin(), keys.end())) << t.first;
        EXPECT_EQ(static_cast<int>(t.second.slots.size()), t.second.lookup_count) << t.first;
        EXPECT_GT(t.second.slots.size(), keys.size()) << t.first;
        for (const tabletest::Entry& e : t.second.entries) {
            if (e.value.compare(0, 28, "PortableServer::ServantBase:") == 0)
                continue;
            const std::size_t cut = e.value.rfind("::");
            const auto cls = definitions.find(e.value.substr(0, cut));
            if (cls == definitions.end() || cls->second.count(e.value.substr(cut + 2)) != 1)
                problems.push_back(t.first + ": entry " + e.key + " names " + e.value + ", which is not defined once");
        }
    }
    EXPECT_EQ(std::vector<std::string>(), problems);
}

} // namespace
