#include <vexa/detail/cursor_memory.h>

namespace vexa::detail {
namespace {

/// Walks that run at the same time, one inside the other, have a cursor each; beyond this depth they allocate.
constexpr unsigned int MAX_KEPT = 8;

/// Set when the thread ends: what is released from then on, by other objects of the thread, is freed at once.
thread_local bool t_isEnding = false;

struct CKept {
    ~CKept()
    {
        while (Count != 0)
            ::operator delete(Blocks[--Count]);
        t_isEnding = true;
    }

    void* Blocks[MAX_KEPT] = {};
    unsigned int Count = 0;
};

thread_local CKept t_kept;

} // namespace

void* TakeCursorMemory()
{
    if (t_isEnding || t_kept.Count == 0) return ::operator new(CURSOR_ROOM);
    return t_kept.Blocks[--t_kept.Count];
}

void ReturnCursorMemory(void* memory) noexcept
{
    if (t_isEnding || memory == nullptr || t_kept.Count == MAX_KEPT)
        ::operator delete(memory);
    else
        t_kept.Blocks[t_kept.Count++] = memory;
}

} // namespace vexa::detail
