#include <ace/OS_NS_Thread.h>
#include <ace/Recursive_Thread_Mutex.h>
#include <ace/Static_Object_Lock.h>

#include <vexa/helper.h>

namespace vexa::helper {

void Acquire_Recursive_Thread_Mutex() { ACE_OS::mutex_lock(&ACE_Static_Object_Lock::instance()->lock()); }

void Release_Recursive_Thread_Mutex() { ACE_OS::mutex_unlock(&ACE_Static_Object_Lock::instance()->lock()); }

} // namespace vexa::helper
