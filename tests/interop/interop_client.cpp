// The Probe client: runs the check list against the server a reference
// names and prints one line per check. Exits 0 when every check passed.
//
// interop_client [ORB options] (--ior-file FILE | --ref REFERENCE)
//   REFERENCE: IOR:..., corbaloc:... or corbaname:...
#include "CallbackServant.h"
#include "CheckReport.h"
#include "InteropOrb.h"
#include "ProbeChecks.h"
#include "ReferenceFile.h"

#include <cstdio>
#include <string>
#include <thread>

int main(int argc, char** argv)
{
    try {
        CORBA::ORB_var orb = CORBA::ORB_init(argc, argv);
        const std::string reference = interop::ReferenceFile::from_arguments(argc, argv, "interop_client", true);
        if (reference.empty())
            return 2;

        CORBA::Object_var root = orb->resolve_initial_references("RootPOA");
        PortableServer::POA_var poa = PortableServer::POA::_narrow(root.in());
        PortableServer::POAManager_var manager = poa->the_POAManager();
        manager->activate();
        // The callback objects are served while the checks run.
        std::thread server([&orb] { orb->run(); });

        interop::CheckReport report;
        {
            // Servants outlive the adapter: the ORB is destroyed below
            // before they go out of scope.
            interop::CallbackServant first, second;
            try {
                CORBA::Object_var object = orb->string_to_object(reference.c_str());
                Interop::Probe_var probe = Interop::Probe::_narrow(object.in());
                report.check("the reference names a Probe", !CORBA::is_nil(probe.in()), "nil after _narrow");
                if (!CORBA::is_nil(probe.in())) {
                    interop::ProbeChecks checks(orb.in(), poa.in(), probe.in(), first, second, report);
                    checks.run();
                }
            } catch (const CORBA::Exception& e) {
                report.check("reaching the server", false, interop::CheckReport::text(e));
            }
            orb->shutdown(true);
            server.join();
            orb->destroy();
        }
        return report.finish() ? 0 : 1;
    } catch (const CORBA::Exception& e) {
        std::fprintf(stderr, "interop_client: %s\n", e._rep_id());
        return 1;
    }
}
