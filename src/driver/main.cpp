// yvidl: the IDL compiler's command-line driver.
#include "YV_Driver.h"

int main(int argc, char** argv) { return YV_Driver().run(argc, argv); }
