// A container as one line of text.

#include <vexa/container_refrence.h>
#include <vexa/text.h>

#include "reference/flat_attrib.h"

namespace vexa {
namespace {

void AppendQuoted(std::string& out, const CConstRefrence& value, bool isQuoted, char quote)
{
    if (isQuoted) out += quote;
    AppendString(out, value);
    if (isQuoted) out += quote;
}

/// Appends each element with \p append, separated.
template<class Append>
void ListElements(std::string& out, const CContainerConstRefrence& container, char separator, Append&& append)
{
    out.clear();
    bool isFirst = true;
    for (const CConstRefrence& element : container) {
        if (!isFirst) out += separator;
        isFirst = false;
        if (element.ValueAddress() == nullptr)
            out += "NULL";
        else
            append(element);
    }
}

} // namespace

void CContainerConstRefrence::GetListString(std::string& out, char separator, char quote) const
{
    const bool isQuoted = ContainerInfor().ElementType.IsStringTypeEx();
    ListElements(out, *this, separator,
                 [&](const CConstRefrence& element) { AppendQuoted(out, element, isQuoted, quote); });
}

void CContainerConstRefrence::GetListString(std::string& out, const CFlatAttribInfor& attrib, char separator,
                                            char quote) const
{
    const bool isQuoted = attrib.AttribInfor->TypeInfor.DataType == Enum::DT_STD_STRING;
    ListElements(out, *this, separator, [&](const CConstRefrence& element) {
        AppendQuoted(out, reference::FlatAttribOf(element, attrib), isQuoted, quote);
    });
}

} // namespace vexa
