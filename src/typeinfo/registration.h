#ifndef VEXA_TYPEINFO_REGISTRATION_H
#define VEXA_TYPEINFO_REGISTRATION_H

namespace vexa::typeinfo {

/// Takes the global lock for one registration; registrations nest on one thread. Each needs its LeaveRegistration.
void EnterRegistration();

/// Ends a registration. When it is the outermost one, every descriptor announced meanwhile is published: until then
/// a descriptor may be complete itself and yet refer to one that is not.
void LeaveRegistration();

} // namespace vexa::typeinfo

#endif
