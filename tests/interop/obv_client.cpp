// The value-type client: runs its checks against the Exchange a reference
// names and prints one line per check. Exits 0 when every check passed.
//
// obv_client [ORB options] --ior-file FILE
#include "CheckReport.h"
#include "ObvSamples.h"
#include "ReferenceFile.h"

#include <cstdio>
#include <cstring>
#include <functional>
#include <string>

namespace {

using interop::CheckReport;

// Runs one check, a CORBA exception being its failure.
void check(CheckReport& report, const std::string& name, const std::function<std::string()>& body)
{
    try {
        report.check(name, body());
    } catch (const CORBA::Exception& e) {
        report.check(name, false, CheckReport::text(e));
    }
}

void run_checks(CORBA::ORB_ptr orb, Obv::Exchange_ptr exchange, CheckReport& report)
{
    check(report, "an account with private state", [&] {
        obv::AccountView* sent = new obv::AccountView;
        Obv::Account_var hold = sent;
        sent->owner("ada");
        sent->set_balance(1234567890123LL);
        Obv::Longs history;
        history.length(3);
        for (CORBA::ULong i = 0; i < 3; ++i)
            history[i] = static_cast<CORBA::Long>(i * 10 - 5);
        sent->history(history);
        Obv::Account_var back = exchange->echo_account(sent);
        obv::AccountView* view = dynamic_cast<obv::AccountView*>(back.in());
        if (view == nullptr)
            return std::string("not made by the registered factory");
        std::string problems;
        if (std::strcmp(view->owner(), "ada") != 0)
            problems += " owner";
        if (view->get_balance() != 1234567890123LL)
            problems += " balance " + std::to_string(view->get_balance());
        if (view->history().length() != 3 || view->history()[0] != -5 || view->history()[2] != 15)
            problems += " history";
        return problems;
    });
    check(report, "a graph with a shared node", [&] {
        Obv::Node_var sent = obv::make_pair_graph();
        Obv::Node_var back = exchange->echo_node(sent.in());
        return obv::pair_problems(back.in());
    });
    check(report, "a null value", [&] {
        Obv::Node_var back = exchange->echo_node(nullptr);
        return back.in() == nullptr ? std::string() : std::string("not null");
    });
    check(report, "a cycle", [&] {
        Obv::Node_var sent = obv::make_cycle(5);
        Obv::Node_var back = exchange->echo_node(sent.in());
        std::string problems;
        if (back.in() == nullptr || back->label() != 5 || back->left() != back.in() || back->right() != nullptr)
            problems = "not a node that is its own left child";
        obv::cut(sent.in());
        obv::cut(back.in());
        return problems;
    });
    check(report, "one value as two arguments", [&] {
        Obv::Node_var a = obv::make_pair_graph();
        Obv::Node_var b = obv::make_pair_graph();
        std::string problems;
        if (!exchange->same(a.in(), a.in()))
            problems += " one value arrived as two";
        if (exchange->same(a.in(), b.in()))
            problems += " two values arrived as one";
        return problems;
    });
    check(report, "a truncatable value whose own state starts with plain members", [&] {
        Obv::Derived_var sent = new OBV_Obv::Derived;
        sent->name("derived");
        sent->count(7);
        sent->ratio(0.5);
        Obv::Node_var extra = obv::make_pair_graph();
        sent->extra(extra.in());
        Obv::Base_var back = exchange->echo_base(sent.in());
        Obv::Derived* d = Obv::Derived::_downcast(back.in());
        if (d == nullptr)
            return std::string("not a Derived");
        std::string problems;
        if (std::strcmp(d->name(), "derived") != 0 || d->count() != 7 || d->ratio() != 0.5)
            problems += " state";
        const std::string graph = obv::pair_problems(d->extra());
        if (!graph.empty())
            problems += " extra:" + graph;
        return problems;
    });
    check(report, "a derived value without its factory, truncated to its base", [&] {
        Obv::Base_var back = exchange->make_extended();
        if (back.in() == nullptr)
            return std::string("null");
        if (Obv::Extended::_downcast(back.in()) != nullptr)
            return std::string("an Extended, not truncated");
        return std::strcmp(back->name(), "ext") == 0 ? std::string() : std::string("name ") + back->name();
    });
    check(report, "a box of a string", [&] {
        Obv::Label_var sent = new Obv::Label("boxed");
        Obv::Label_var back = exchange->echo_label(sent.in());
        Obv::Label_var none = exchange->echo_label(nullptr);
        std::string problems;
        if (back.in() == nullptr || std::strcmp(back->_value(), "boxed") != 0)
            problems += " value";
        if (none.in() != nullptr)
            problems += " null came back as a box";
        return problems;
    });
    check(report, "a box of a structure", [&] {
        Obv::Point p;
        p.x = 3;
        p.y = -4;
        Obv::PointBox_var sent = new Obv::PointBox(p);
        Obv::PointBox_var back = exchange->echo_point(sent.in());
        if (back.in() == nullptr)
            return std::string("null");
        return back->_value().x == 3 && back->_value().y == -4 ? std::string() : std::string("other coordinates");
    });
    check(report, "a graph inside an any", [&] {
        Obv::Node_var sent = obv::make_pair_graph();
        CORBA::Any a;
        a <<= sent.in();
        CORBA::Any_var back = exchange->echo_any(a);
        Obv::Node* n = nullptr;
        if (!(back.in() >>= n))
            return std::string("no Node in the any");
        return obv::pair_problems(n);
    });
    check(report, "a value type served as an object", [&] {
        Obv::Counter_var counter = exchange->make_counter(10);
        if (CORBA::is_nil(counter.in()))
            return std::string("nil");
        const CORBA::Long first = counter->next();
        const CORBA::Long second = counter->next();
        return first == 11 && second == 12 ? std::string()
                                           : "counted " + std::to_string(first) + ", " + std::to_string(second);
    });
    check(report, "an abstract interface carrying an object reference", [&] {
        CORBA::String_var seen;
        Obv::Named_var back = exchange->echo_named(exchange, seen.out());
        std::string problems;
        if (std::strcmp(seen.in(), "object exchange") != 0)
            problems += std::string(" arrived as ") + seen.in();
        if (CORBA::is_nil(back.in()))
            return problems + " nil came back";
        CORBA::Object_var object = back->_to_object();
        if (CORBA::is_nil(object.in()))
            problems += " not an object";
        CORBA::String_var name = back->name();
        if (std::strcmp(name.in(), "exchange") != 0)
            problems += std::string(" named ") + name.in();
        return problems;
    });
    check(report, "an abstract interface carrying a value", [&] {
        Obv::NamedValue_var sent = new obv::NamedValueImpl;
        sent->title("plain");
        CORBA::String_var seen;
        Obv::Named_var back = exchange->echo_named(sent.in(), seen.out());
        std::string problems;
        if (std::strcmp(seen.in(), "value plain") != 0)
            problems += std::string(" arrived as ") + seen.in();
        if (CORBA::is_nil(back.in()))
            return problems + " nil came back";
        CORBA::ValueBase_var value = back->_to_value();
        if (Obv::NamedValue::_downcast(value.in()) == nullptr)
            problems += " not a NamedValue";
        CORBA::String_var name = back->name();
        if (std::strcmp(name.in(), "plain") != 0)
            problems += std::string(" named ") + name.in();
        return problems;
    });
    (void)orb;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        CORBA::ORB_var orb = CORBA::ORB_init(argc, argv);
        const std::string reference = interop::ReferenceFile::from_arguments(argc, argv, "obv_client", false);
        if (reference.empty())
            return 2;
        obv::register_factories(orb.in());
        // Extended values arrive truncated to their base.
        orb->unregister_value_factory("IDL:Obv/Extended:1.0");

        CheckReport report;
        try {
            CORBA::Object_var object = orb->string_to_object(reference.c_str());
            Obv::Exchange_var exchange = Obv::Exchange::_narrow(object.in());
            report.check("the reference names an Exchange", !CORBA::is_nil(exchange.in()), "nil after _narrow");
            if (!CORBA::is_nil(exchange.in()))
                run_checks(orb.in(), exchange.in(), report);
        } catch (const CORBA::Exception& e) {
            report.check("reaching the server", false, CheckReport::text(e));
        }
        orb->destroy();
        return report.finish() ? 0 : 1;
    } catch (const CORBA::Exception& e) {
        std::fprintf(stderr, "obv_client: %s\n", e._rep_id());
        return 1;
    }
}
