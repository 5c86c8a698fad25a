// The value-type server: serves one Exchange object in the root POA and
// writes its reference to a file. Runs until SIGTERM or SIGINT, then shuts
// its ORB down and exits 0.
//
// obv_server [ORB options] --ior-file FILE
#include "ExchangeServant.h"
#include "ObvSamples.h"
#include "ReferenceFile.h"
#include "ServerLoop.h"

#include <cstdio>
#include <cstring>
#include <string>

int main(int argc, char** argv)
{
    interop::ServerLoop loop;

    try {
        CORBA::ORB_var orb = CORBA::ORB_init(argc, argv);
        std::string ior_file;
        for (int i = 1; i < argc; ++i) {
            if (!std::strcmp(argv[i], "--ior-file") && i + 1 < argc) {
                ior_file = argv[++i];
            } else {
                std::fprintf(stderr, "obv_server: unknown argument %s\n", argv[i]);
                return 2;
            }
        }
        if (ior_file.empty()) {
            std::fprintf(stderr, "usage: obv_server [ORB options] --ior-file FILE\n");
            return 2;
        }
        obv::register_factories(orb.in());

        CORBA::Object_var root = orb->resolve_initial_references("RootPOA");
        PortableServer::POA_var poa = PortableServer::POA::_narrow(root.in());
        PortableServer::POAManager_var manager = poa->the_POAManager();
        {
            obv::ExchangeServant servant(poa.in());
            PortableServer::ObjectId_var id = poa->activate_object(&servant);
            CORBA::Object_var reference = poa->id_to_reference(id.in());
            manager->activate();

            CORBA::String_var ior = orb->object_to_string(reference.in());
            if (!interop::ReferenceFile::write(ior_file, ior.in())) {
                std::fprintf(stderr, "obv_server: cannot write %s\n", ior_file.c_str());
                return 1;
            }

            // The servants outlive the adapter.
            loop.run(orb.in());
        }
        return 0;
    } catch (const CORBA::Exception& e) {
        std::fprintf(stderr, "obv_server: %s\n", e._rep_id());
        return 1;
    }
}
