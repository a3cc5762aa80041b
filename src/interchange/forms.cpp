// What is inside classes, containers and shapes, worked out once.

#include "interchange/form.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include <vexa/helper.h>

#include "core/utf8.h"
#include "interchange/path.h"

namespace vexa::interchange {

using detail::CFinishedMark;
using typeinfo::CMemberNotes;

namespace {

template<class Form>
struct CKeptForm : typeinfo::CKept {
    Form Made;
};

/// `"key":` as it stands in JSON. What needs an escape in a key is rare, and escaped whatever the policy.
std::string JsonKeyOf(const std::string& key)
{
    std::string text;
    AppendQuoted(text, key);
    return text += ':';
}

/// Fills the form of a class: its attributes, and those of the flattened ones inside it, in list order.
class CClassFiller {
public:
    CClassFiller(const CClassInfor& infor, CClassForm& form) : m_form(form)
    {
        form.Infor = &infor;
        form.Notes = typeinfo::NotesOf(infor);
        if (form.Notes != nullptr && !form.Notes->Tag.empty()) m_taken.insert(form.Notes->Tag);
        AddMembers(infor, 0, {}, false);
        AddKeys();
    }

private:
    /// \param holders leads from the class to the object of \p infor that lies \p offset bytes inside.
    /// What stands inside a confidential attribute is so too.
    void AddMembers(const CClassInfor& infor, unsigned long offset, const std::string& holders, bool isMasked)
    {
        const typeinfo::CClassNotes* const notes = typeinfo::NotesOf(infor);
        for (const CAttribInfor& attrib : infor.AttribList) {
            const CMemberNotes* const own = notes != nullptr ? typeinfo::NotesOf(infor, attrib) : nullptr;
            const unsigned long place = offset + attrib.Offset;
            if (own != nullptr && own->IsFlattened && IsPlainClass(attrib.TypeInfor)) {
                const auto& inner = *static_cast<const CClassInfor*>(attrib.TypeInfor.DetailInfor);
                const bool isInnerMasked = isMasked || attrib.IsMasked != 0;
                m_form.Flattened.push_back({&inner, static_cast<std::uint32_t>(place), isInnerMasked});
                AddMembers(inner, place, holders + attrib.Name + '.', isInnerMasked);
                continue;
            }
            const auto* const names = own != nullptr ? own->Enumeration : nullptr;
            CMember member(attrib.TypeInfor, place, names);
            member.Holders = holders;
            member.Infor = &attrib;
            member.Owner = &infor;
            member.OwnerOffset = static_cast<std::uint32_t>(offset);
            member.Notes = own;
            member.IsMasked = isMasked || attrib.IsMasked != 0;
            AddMember(std::move(member));
        }
    }
    static bool IsPlainClass(const CGnlTypeInfor& type)
    {
        return type.DataType == Enum::DT_CLASS && type.HoldingFlags == 0;
    }

    void AddMember(CMember member)
    {
        member.Key = typeinfo::KeyOf(*member.Owner, *member.Infor);
        member.JsonKey = JsonKeyOf(member.Key);
        m_form.HasMasked = m_form.HasMasked || member.IsMasked;
        m_form.HasUnions = m_form.HasUnions || member.Infor->UnionSelector != nullptr;
        const bool isKeeper = member.Notes != nullptr && member.Notes->KeepsUnknown;
        if (!isKeeper && !IsFree(member.Key)) {
            m_form.Keyless.push_back(std::move(member));
            return;
        }
        member.Number = static_cast<std::uint32_t>(m_form.Members.size());
        if (isKeeper) m_form.Keeper = member.Number;
        m_form.HasNotes = m_form.HasNotes || member.Notes != nullptr;
        if (member.Notes != nullptr && member.Notes->IsRequired) m_form.Required.push_back(member.Number);
        m_form.Members.push_back(std::move(member));
    }

    /// Whether a key can be had. One that is taken already stays with the tag, or with the attribute described first.
    bool IsFree(const std::string& key)
    {
        const bool isText = core::IsUtf8(key);
        if (isText && m_taken.insert(key).second) return true;
        helper::LogError(isText ? "The class %s has the key \"%s\" twice: it stays with the first of them"
                                : "The class %s has the key \"%s\", which is no UTF-8: it is neither written nor read",
                         m_form.Infor->Name.c_str(), key.c_str());
        return false;
    }

    /// Keys go before aliases.
    void AddKeys()
    {
        std::vector<std::string_view> keys;
        const auto add = [&](std::string_view key, const CMember& member) {
            keys.push_back(key);
            m_form.KeyOwners.push_back(member.Number);
        };
        for (CMember& member : m_form.Members) {
            member.HasKey = member.Number != m_form.Keeper;
            if (member.HasKey) add(member.Key, member);
        }
        for (const CMember& member : m_form.Members) {
            if (member.Notes == nullptr) continue;
            for (const std::string& alias : member.Notes->Aliases)
                if (IsFree(alias)) add(alias, member);
        }
        m_form.Keys = typeinfo::CNameTable(keys);
    }

    std::set<std::string> m_taken; ///< keys
    CClassForm& m_form;
};

void Fill(CClassForm& form, const CClassInfor& infor) { CClassFiller(infor, form); }

void Fill(CContainerForm& form, const CContainerInfor& infor)
{
    form.Element = CForm(infor.ElementType, 0, typeinfo::EnumerationOfElements(infor));
    form.Stride = infor.Mark.Stride();
    form.IsVector = infor.Mark.Is(CFinishedMark::VECTOR) && form.Stride != 0;
    form.IsSlots = infor.Mark.Is(CFinishedMark::SLOTS) && form.Stride != 0;
    if (form.Element.Kind != FormKind::PAIR && form.Element.Kind != FormKind::CLASS) return;
    const CClassInfor& pair = form.Element.ClassInfor();
    if (pair.AttribList.size() != 2) return;
    const auto part = [&pair](const CAttribInfor& attrib) {
        const CMemberNotes* const notes = typeinfo::NotesOf(pair, attrib);
        return CForm(attrib.TypeInfor, attrib.Offset, notes != nullptr ? notes->Enumeration : nullptr);
    };
    form.Key = part(pair.AttribList.front());
    form.Mapped = part(pair.AttribList.back());
}

void Fill(CShapeForm& form, const CCustomBasicTypeInfor& infor)
{
    const detail::CShape& shape = *typeinfo::ShapeOf(infor);
    for (unsigned int i = 0; i < shape.PartCount; ++i) {
        const detail::CTypeSource& part = shape.Parts[i];
        form.Types.push_back(detail::MakeTypeInfor(part));
        form.Parts.emplace_back(form.Types.back(), 0, typeinfo::EnumerationOf(part));
    }
}

/// The form that lies behind a finished descriptor, made at the first use; what another thread has made meanwhile wins.
template<class Form, class Finished>
const Form& Shared(const Finished& finished)
{
    using Kept = CKeptForm<Form>;
    const typeinfo::CKept* form = finished.Form.load(std::memory_order_acquire);
    if (__builtin_expect(form == nullptr, 0)) {
        auto made = std::make_unique<Kept>();
        Fill(made->Made, finished);
        if (finished.Form.compare_exchange_strong(form, made.get(), std::memory_order_acq_rel)) form = made.release();
    }
    return static_cast<const Kept*>(form)->Made;
}

} // namespace

/// What belongs to descriptors made by hand, by their addresses.
struct CForms::COwn {
    template<class Form>
    using Kept = std::map<const void*, std::unique_ptr<const Form>>;

    Kept<CClassForm> Classes;
    Kept<CContainerForm> Containers;
};

CForms::CForms() = default;
CForms::~CForms() = default;

template<class Form, class Infor>
const Form& CForms::OwnOf(std::map<const void*, std::unique_ptr<const Form>> COwn::*forms, const Infor& infor)
{
    if (m_own == nullptr) m_own = std::make_unique<COwn>();
    std::unique_ptr<const Form>& place = ((*m_own).*forms)[&infor];
    if (place == nullptr) {
        auto made = std::make_unique<Form>();
        Fill(*made, infor);
        place = std::move(made);
    }
    return *place;
}

const CClassForm& CForms::Of(const CClassInfor& infor)
{
    const typeinfo::CFinishedClass* const finished = typeinfo::FinishedClass(infor);
    return finished != nullptr ? Shared<CClassForm>(*finished) : OwnOf(&COwn::Classes, infor);
}

const CContainerForm& CForms::Of(const CContainerInfor& infor)
{
    const typeinfo::CFinishedContainer* const finished = typeinfo::FinishedContainer(infor);
    return finished != nullptr ? Shared<CContainerForm>(*finished) : OwnOf(&COwn::Containers, infor);
}

const CShapeForm& CForms::Of(const CCustomBasicTypeInfor& shaped)
{
    return Shared<CShapeForm>(*typeinfo::FinishedCustom(shaped));
}

namespace {

/// Looks through everything that a form leads to, each descriptor once.
class CMaskedSearch {
public:
    explicit CMaskedSearch(CForms& forms) : m_forms(forms) {}

    bool Reaches(const CForm& first)
    {
        m_open.push_back(&first);
        while (!m_open.empty()) {
            const CForm& form = *m_open.back();
            m_open.pop_back();
            if (form.Kind == FormKind::GENERIC || form.Kind == FormKind::GROUP) return true; // may lead anywhere
            if (form.Type->DetailInfor == nullptr || !m_seen.insert(form.Type->DetailInfor).second) continue;
            if (Opens(form)) return true;
        }
        return false;
    }

private:
    /// \return whether there is a confidential attribute.
    bool Opens(const CForm& form)
    {
        if (form.Code == Enum::DT_CLASS) return OpensClass(form.ClassInfor()) || OpensDerived(form.ClassInfor());
        if (form.Type->IsContainer()) m_open.push_back(&m_forms.Of(form.ContainerInfor()).Element);
        if (form.Kind == FormKind::SHAPE)
            for (const CForm& part : m_forms.Of(form.CustomInfor()).Parts)
                m_open.push_back(&part);
        return false;
    }
    bool OpensClass(const CClassInfor& infor)
    {
        const CClassForm& form = m_forms.Of(infor);
        for (const CMember& member : form.Members)
            m_open.push_back(&member);
        return form.HasMasked;
    }

    /// The classes that may stand where a pointer to this one is.
    bool OpensDerived(const CClassInfor& infor)
    {
        const typeinfo::CClassNotes* const notes = typeinfo::NotesOf(infor);
        if (notes == nullptr || notes->Tag.empty()) return false;
        for (const std::string& value : typeinfo::TagValuesOf(infor)) {
            const CClassInfor* const derived = typeinfo::FindByTagValue(infor, value).Infor;
            if (derived != nullptr && m_seen.insert(derived).second && OpensClass(*derived)) return true;
        }
        return false;
    }

    CForms& m_forms;
    std::vector<const CForm*> m_open;
    std::set<const void*> m_seen;
};

} // namespace

bool CForms::ReachesMasked(const CForm& form) { return CMaskedSearch(*this).Reaches(form); }

} // namespace vexa::interchange
