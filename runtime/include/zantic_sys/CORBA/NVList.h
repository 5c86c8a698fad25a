// An argument list: named values in argument order. A list made by
// add_value owns its named values; the stack-based lists of the dispatch
// functions (YV_Cxx_NV::StackBasedNVList) only refer to theirs.
#ifndef YV_RT_CORBA_NVLIST_H
#define YV_RT_CORBA_NVLIST_H

#include "NamedValue.h"
#include "Types.h"

#include <memory>
#include <vector>

namespace CORBA {

class NVList {
public:
    NVList();
    virtual ~NVList();
    NVList(const NVList&) = delete;
    NVList& operator=(const NVList&) = delete;

    ULong count() const { return static_cast<ULong>(m_items.size()); }
    // The item at `index` (from 0); BAD_PARAM beyond the end.
    NamedValue_ptr item(ULong index) const;
    // Appends a named value owning a copy of `value`.
    NamedValue_ptr add_value(const char* name, const Any& value, Flags flags);

    static NVList_ptr _duplicate(NVList_ptr l) { return l; }
    static NVList_ptr _nil() { return nullptr; }

protected:
    // Refers to the `n` named values of `values` (none when it is null),
    // which someone else owns.
    NVList(ULong n, NamedValue_ptr* values);
    // Appends a named value that someone else owns.
    void yv_append(NamedValue_ptr nv) { m_items.push_back(nv); }

private:
    std::vector<NamedValue_ptr> m_items;
    std::vector<std::unique_ptr<NamedValue>> m_owned;
};

inline Boolean is_nil(NVList_ptr l) { return l == nullptr; }

} // namespace CORBA

#endif
