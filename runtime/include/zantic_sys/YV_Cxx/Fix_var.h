// The owning variable of a fixed-length structure or union (S_var): out and
// result values are plain references, so out() gives T&.
#ifndef YV_RT_YV_CXX_FIX_VAR_H
#define YV_RT_YV_CXX_FIX_VAR_H

namespace YV_Cxx {

template <class T>
class Fix_var {
public:
    Fix_var() : m_ptr(new T()) {}
    // Adopts the value.
    Fix_var(T* p) : m_ptr(p) {}
    Fix_var(const T& value) : m_ptr(new T(value)) {}
    Fix_var(const Fix_var& other) : m_ptr(other.m_ptr ? new T(*other.m_ptr) : nullptr) {}
    ~Fix_var() { delete m_ptr; }

    Fix_var& operator=(T* p)
    {
        if (p != m_ptr) {
            delete m_ptr;
            m_ptr = p;
        }
        return *this;
    }
    Fix_var& operator=(const T& value)
    {
        if (m_ptr == nullptr)
            m_ptr = new T(value);
        else if (m_ptr != &value)
            *m_ptr = value;
        return *this;
    }
    Fix_var& operator=(const Fix_var& other)
    {
        if (this != &other) {
            if (other.m_ptr == nullptr)
                *this = static_cast<T*>(nullptr);
            else
                *this = *other.m_ptr;
        }
        return *this;
    }

    T* operator->() { return m_ptr; }
    const T* operator->() const { return m_ptr; }
    operator T&() { return *m_ptr; }
    operator const T&() const { return *m_ptr; }

    const T& in() const { return *m_ptr; }
    T& inout() { return *m_ptr; }
    T& out() { return *m_ptr; }
    T _retn() { return *m_ptr; }
    T* ptr() const { return m_ptr; }

private:
    T* m_ptr;
};

} // namespace YV_Cxx

#endif
