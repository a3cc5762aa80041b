#include <vexa/container_infor.h>

#include <cstdarg>

#include "core/bounded.h"

namespace vexa {
namespace {

__attribute__((format(printf, 1, 2))) std::string FormatTypeName(const char* format, ...)
{
    char buffer[255] = {};
    std::va_list arguments;
    va_start(arguments, format);
    core::vsnprintf_s(buffer, sizeof buffer, sizeof buffer - 1, format, arguments);
    va_end(arguments);
    return buffer;
}

} // namespace

CContainerInfor& CContainerInfor::operator=(const CContainerInfor& other)
{
    if (this == &other) return *this;
    ElementType = other.ElementType;
    Name = other.Name;
    Append = other.Append;
    Reserved2 = other.Reserved2;
    Insert = other.Insert;
    Clear = other.Clear;
    Count = other.Count;
    Begin = other.Begin;
    Release = other.Release;
    Reserved8 = other.Reserved8;
    Next = other.Next;
    RBegin = other.RBegin;
    RRelease = other.RRelease;
    RNext = other.RNext;
    return *this;
}

std::string CContainerInfor::TypeName() const
{
    return FormatTypeName("%s<%s>", Name.c_str(), ElementType.TypeName().c_str());
}

} // namespace vexa
