// The plug-in's two entry points, exported under their plain names: the
// compiler finds them with dlsym after loading the library.
#ifndef POACXXINIT_H
#define POACXXINIT_H

class CodeGenerator;

extern "C" {
// The library's one generator; every call gives the same object, which the
// caller neither owns nor deletes.
CodeGenerator* POACxxInit();
// Writes the plug-in's usage lines on the error stream.
void POACxxUsage();
}

#endif
