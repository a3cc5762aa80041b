// A std::vector of elements whose type is not known here: three pointers, and one function for the elements.

#include <vexa/detail/cursor_memory.h>
#include <vexa/detail/vector.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>
#include <vector>

namespace vexa::detail {
namespace {

struct CLayout {
    char* Start;
    char* Finish;
    char* End;
};

CLayout Load(const void* vector) noexcept
{
    CLayout layout;
    std::memcpy(&layout, vector, sizeof layout);
    return layout;
}

void Store(void* vector, const CLayout& layout) noexcept { std::memcpy(vector, &layout, sizeof layout); }

void Construct(void* place, unsigned long size, ManageFunction manage)
{
    if (manage != nullptr)
        manage(ElementTask::CONSTRUCT, place, nullptr);
    else
        std::memset(place, 0, size);
}

void Destroy(const CLayout& layout, unsigned long size, ManageFunction manage) noexcept
{
    if (manage == nullptr) return;
    for (char* element = layout.Start; element != layout.Finish; element += size)
        manage(ElementTask::DESTROY, element, nullptr);
}

void MoveAll(const CLayout& from, char* to, unsigned long size, ManageFunction manage) noexcept
{
    if (manage == nullptr) {
        if (from.Start != from.Finish) std::memcpy(to, from.Start, static_cast<std::size_t>(from.Finish - from.Start));
        return;
    }
    for (char* element = from.Start; element != from.Finish; element += size, to += size)
        manage(ElementTask::MOVE, to, element);
}

struct CFreed {
    void operator()(char* block) const noexcept { ::operator delete(block); }
};

/// Twice the room, as the vector itself takes it.
unsigned long GrownCapacity(unsigned long count, unsigned long size)
{
    const unsigned long most = static_cast<unsigned long>(std::numeric_limits<std::ptrdiff_t>::max()) / size;
    if (count >= most) throw std::length_error("vector::_M_realloc_insert");
    return std::min(most, count + std::max(count, 1UL));
}

void* AppendGrown(void* vector, const CLayout& layout, unsigned long size, ManageFunction manage)
{
    const auto used = static_cast<unsigned long>(layout.Finish - layout.Start);
    const unsigned long room = GrownCapacity(used / size, size) * size;
    std::unique_ptr<char, CFreed> block(static_cast<char*>(::operator new(room)));
    Construct(block.get() + used, size, manage);
    MoveAll(layout, block.get(), size, manage);
    CFreed()(layout.Start);
    char* const start = block.release();
    Store(vector, {start, start + used + size, start + room});
    return start + used;
}

bool LooksAsExpected()
{
    if (sizeof(std::vector<int>) != sizeof(CLayout)) return false;
    std::vector<int> probe;
    const CLayout empty = Load(&probe);
    if (empty.Start != nullptr || empty.Finish != nullptr || empty.End != nullptr) return false;
    probe.reserve(3);
    probe.push_back(1);
    const CLayout layout = Load(&probe);
    const char* const data = reinterpret_cast<const char*>(probe.data());
    return layout.Start == data && layout.Finish == data + sizeof(int) &&
           layout.End == data + probe.capacity() * sizeof(int);
}

} // namespace

bool IsVectorLayoutKnown()
{
    static const bool isKnown = LooksAsExpected();
    return isKnown;
}

void* NewVector() { return new std::vector<char>(); }

void* AppendToVector(void* vector, unsigned long size, ManageFunction manage)
{
    CLayout layout = Load(vector);
    if (layout.Finish == layout.End) return AppendGrown(vector, layout, size, manage);
    char* const added = layout.Finish;
    Construct(added, size, manage);
    layout.Finish += size;
    Store(vector, layout);
    return added;
}

void ClearVector(void* vector, unsigned long size, ManageFunction manage) noexcept
{
    CLayout layout = Load(vector);
    Destroy(layout, size, manage);
    layout.Finish = layout.Start;
    Store(vector, layout);
}

void RemoveFromVector(void* vector, unsigned long size, ManageFunction manage, void* element) noexcept
{
    CLayout layout = Load(vector);
    auto* place = static_cast<char*>(element);
    layout.Finish -= size;
    if (manage == nullptr) {
        std::memmove(place, place + size, static_cast<std::size_t>(layout.Finish - place));
    } else {
        manage(ElementTask::DESTROY, place, nullptr);
        for (; place != layout.Finish; place += size)
            manage(ElementTask::MOVE, place, place + size);
    }
    Store(vector, layout);
}

void DeleteVector(void* vector, unsigned long size, ManageFunction manage) noexcept
{
    if (vector == nullptr) return;
    ClearVector(vector, size, manage);
    CFreed()(Load(vector).Start);
    ::operator delete(vector);
}

void* BeginOfVector(void* vector, void** first)
{
    const CLayout layout = Load(vector);
    auto* const cursor = MakeCursor(layout.Start);
    *first = layout.Start != layout.Finish ? layout.Start : nullptr;
    return cursor;
}

void* NextInVector(void* vector, void* cursor, unsigned long size) noexcept
{
    char*& position = *static_cast<char**>(cursor);
    position += size;
    return position != Load(vector).Finish ? position : nullptr;
}

void* RBeginOfVector(void* vector, void** last, unsigned long size)
{
    const CLayout layout = Load(vector);
    auto* const cursor = MakeCursor(layout.Finish);
    *last = layout.Start != layout.Finish ? layout.Finish - size : nullptr;
    return cursor;
}

/// The cursor stands behind the element that was given last.
void* RNextInVector(void* vector, void* cursor, unsigned long size) noexcept
{
    char*& position = *static_cast<char**>(cursor);
    position -= size;
    return position != Load(vector).Start ? position - size : nullptr;
}

unsigned long CountOfVector(void* vector, unsigned long size) noexcept
{
    const CLayout layout = Load(vector);
    return static_cast<unsigned long>(layout.Finish - layout.Start) / size;
}

void ReleaseVectorCursor(void* cursor) noexcept { ReleaseCursor<char*>(cursor); }

} // namespace vexa::detail
