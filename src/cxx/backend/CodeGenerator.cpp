#include "CodeGenerator.h"

char CodeGenerator::_narrow_tag = 0;
