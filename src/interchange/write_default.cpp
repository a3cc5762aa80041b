#include "interchange/write_default.h"

namespace vexa::interchange {

CDefaults::~CDefaults()
{
    for (const auto& [infor, made] : m_objects)
        if (made.Object != nullptr) infor->Deleter(made.Object);
}

CDefaults::CNewObject& CDefaults::Of(const CClassForm& form)
{
    const auto [place, isNew] = m_objects.try_emplace(form.Infor);
    CNewObject& made = place->second;
    if (isNew && form.Infor->Factory != nullptr && form.Infor->Deleter != nullptr) {
        made.Texts.resize(form.Members.size());
        made.Object = form.Infor->Factory();
    }
    return made;
}

bool CDefaults::IsDefault(const CClassForm& form, const CMember& member, const void* object)
{
    CNewObject& made = Of(form);
    if (made.Object == nullptr) return false;
    std::optional<std::string>& text = made.Texts[member.Number];
    if (!text && !CompactText(text.emplace(), member, made.Object)) text->clear();
    std::string own;
    return CompactText(own, member, object) && own == *text;
}

} // namespace vexa::interchange
