// The Probe server: serves one Probe object in the root POA, writes its
// reference to a file and, when asked, binds it in a naming service. Runs
// until SIGTERM or SIGINT, then shuts its ORB down and exits 0.
//
// interop_server [ORB options] --ior-file FILE [--bind CONTEXT/NAME]
//   --bind needs the NameService initial reference (-ORBInitRef).
#include "InteropOrb.h"
#include "ProbeServant.h"
#include "ReferenceFile.h"
#include "ServerLoop.h"

#include <cstdio>
#include <cstring>
#include <string>

namespace {

// Binds `object` as "context/name" (name "id.kind") in the naming service,
// making the context when it is not there yet.
void bind_name(CORBA::ORB_ptr orb, const std::string& path, CORBA::Object_ptr object)
{
    CORBA::Object_var service = orb->resolve_initial_references("NameService");
    CosNaming::NamingContext_var root = CosNaming::NamingContext::_narrow(service.in());
    const std::string context = path.substr(0, path.find('/'));
    const std::string leaf = path.substr(path.find('/') + 1);
    CosNaming::Name name;
    name.length(1);
    name[0].id = context.c_str();
    name[0].kind = "";
    CosNaming::NamingContext_var directory;
    try {
        directory = root->bind_new_context(name);
    } catch (const CosNaming::NamingContext::AlreadyBound&) {
        CORBA::Object_var existing = root->resolve(name);
        directory = CosNaming::NamingContext::_narrow(existing.in());
    }
    const std::string::size_type dot = leaf.find('.');
    name[0].id = leaf.substr(0, dot).c_str();
    name[0].kind = dot == std::string::npos ? "" : leaf.substr(dot + 1).c_str();
    directory->rebind(name, object);
}

} // namespace

int main(int argc, char** argv)
{
    interop::ServerLoop loop;

    try {
        CORBA::ORB_var orb = CORBA::ORB_init(argc, argv);
        std::string ior_file, binding;
        for (int i = 1; i < argc; ++i) {
            if (!std::strcmp(argv[i], "--ior-file") && i + 1 < argc)
                ior_file = argv[++i];
            else if (!std::strcmp(argv[i], "--bind") && i + 1 < argc)
                binding = argv[++i];
            else {
                std::fprintf(stderr, "interop_server: unknown argument %s\n", argv[i]);
                return 2;
            }
        }
        if (ior_file.empty()) {
            std::fprintf(stderr, "usage: interop_server [ORB options] --ior-file FILE [--bind CONTEXT/NAME]\n");
            return 2;
        }

        CORBA::Object_var root = orb->resolve_initial_references("RootPOA");
        PortableServer::POA_var poa = PortableServer::POA::_narrow(root.in());
        PortableServer::POAManager_var manager = poa->the_POAManager();
        interop::ProbeServant servant(orb.in(), poa.in(), INTEROP_ORB_NAME);
        PortableServer::ObjectId_var id = poa->activate_object(&servant);
        CORBA::Object_var reference = poa->id_to_reference(id.in());
        manager->activate();

        if (!binding.empty())
            bind_name(orb.in(), binding, reference.in());
        CORBA::String_var ior = orb->object_to_string(reference.in());
        if (!interop::ReferenceFile::write(ior_file, ior.in())) {
            std::fprintf(stderr, "interop_server: cannot write %s\n", ior_file.c_str());
            return 1;
        }

        loop.run(orb.in());
        return 0;
    } catch (const CORBA::Exception& e) {
        std::fprintf(stderr, "interop_server: %s\n", e._rep_id());
        return 1;
    }
}
