#ifndef VEXA_TYPEINFO_REGISTRATION_H
#define VEXA_TYPEINFO_REGISTRATION_H

namespace vexa::typeinfo {

/// Holds the global lock for one registration; registrations nest on one thread. When the outermost one ends, every
/// descriptor of the description layer that was made meanwhile is published: until then a descriptor may be complete
/// itself and yet refer to one that is not.
class CRegistration {
public:
    CRegistration() noexcept;
    ~CRegistration();
    CRegistration(const CRegistration&) = delete;
    CRegistration& operator=(const CRegistration&) = delete;

    /// Until the end of the describing function: an exception that passes leaves the lock held.
    void BeginDescribing() noexcept { m_isDescribing = true; }
    void EndDescribing() noexcept { m_isDescribing = false; }
    bool IsDescribing() const noexcept { return m_isDescribing; }

private:
    bool m_isDescribing = false;
};

} // namespace vexa::typeinfo

#endif
