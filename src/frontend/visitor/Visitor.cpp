#include "Visitor.h"

#define YV_VISITOR_KEY(key, text) const char* const Visitor::key = text;
#include "Visitor_Nodes.def"
