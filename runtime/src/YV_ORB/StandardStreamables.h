// The streamables of the standard operations' values ("_is_a": a string in,
// a boolean out; "_non_existent": a boolean out), with their CDR. They are
// the mapping's string and boolean streamables, so that a caller and a
// servant of this process exchange them on every dispatch path.
#ifndef YV_ORB_STANDARDSTREAMABLES_H
#define YV_ORB_STANDARDSTREAMABLES_H

#include "YV_GIOP/CdrText.h"
#include "zantic_sys/CORBA/string_functions.h"
#include "zantic_sys/YV_Cxx/BasicStreamable.h"
#include "zantic_sys/YV_Cxx/BasicStringStreamable.h"

namespace YV_ORB {

class TextStreamable : public YV_Cxx::StringStreamable {
public:
    using YV_Cxx::StringStreamable::BasicStringStreamable;
    void yv_write(YV_CDR::OutputStream& out) const override
    {
        if (extract() == nullptr)
            throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
        out.write_string(extract());
    }
    void yv_read(YV_CDR::InputStream& in) override
    {
        const std::string text = YV_GIOP::read_text(in);
        YV_Cxx::StringStreamable::yv_destroy(extract());
        extract() = CORBA::string_dup(text.c_str());
    }
};

class FlagStreamable : public YV_Cxx::BasicStreamable<CORBA::Boolean> {
public:
    using YV_Cxx::BasicStreamable<CORBA::Boolean>::BasicStreamable;
    void yv_write(YV_CDR::OutputStream& out) const override { out.write_boolean(extract()); }
    void yv_read(YV_CDR::InputStream& in) override { extract() = in.read_boolean(); }
};

} // namespace YV_ORB

#endif
