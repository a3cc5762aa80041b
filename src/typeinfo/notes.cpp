#include "typeinfo/notes.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <unordered_set>

#include <vexa/helper.h>

#include "typeinfo/derived_classes.h"
#include "typeinfo/key_style.h"

namespace vexa {
namespace typeinfo {

CClassNotes::~CClassNotes() { delete Derived.load(std::memory_order_relaxed); }

const CMemberNotes* NotesOf(const CClassInfor& owner, const CAttribInfor& record) noexcept
{
    const CClassNotes* const notes = NotesOf(owner);
    if (notes == nullptr) return nullptr;
    const auto found = notes->Members.find(&record);
    return found != notes->Members.end() ? &found->second : nullptr;
}

bool IsSameClass(const CAncestor& ancestor, const CClassInfor& infor) noexcept
{
    if (ancestor.Infor == &infor) return true;
    const CClassNotes* const notes = NotesOf(infor);
    return ancestor.Type != nullptr && notes != nullptr && notes->Type != nullptr && *ancestor.Type == *notes->Type;
}

std::string KeyOf(const CClassInfor& owner, const CAttribInfor& record)
{
    const CMemberNotes* const notes = NotesOf(owner, record);
    return notes != nullptr && !notes->Key.empty() ? notes->Key : record.Name;
}

std::string FirstComplaint(const CClassNotes& notes, const void* object)
{
    for (const CCheck& check : notes.Checks) {
        const char* const place = static_cast<const char*>(object) + check.Offset;
        std::string complaint = check.Call(check.Function, check.Text.c_str(), place);
        if (!complaint.empty()) return complaint;
    }
    return {};
}

const detail::CEnumerationSlot* EnumerationOfElements(const CContainerInfor& infor) noexcept
{
    const CFinishedContainer* const finished = FinishedContainer(infor);
    return finished != nullptr ? finished->ElementNames : nullptr;
}

CClassNotes* NotesToFill(CClassInfor& infor)
{
    if (!infor.Mark.Is(detail::CFinishedMark::DRAFT)) return nullptr;
    auto& finished = static_cast<CFinishedClass&>(infor);
    if (finished.Notes == nullptr) finished.Notes = new CClassNotes();
    return finished.Notes;
}

namespace {

void InheritClassNotes(CClassNotes& notes, const CClassInfor& base, const CClassNotes& ofBase, unsigned long offset)
{
    if (notes.Unknown == UnknownKeys::BY_CLASS && ofBase.IsUnknownSaid) notes.Unknown = ofBase.Unknown;
    for (CCheck check : ofBase.Checks) {
        check.Offset += offset;
        notes.Checks.push_back(std::move(check));
    }
    if (ofBase.Tag.empty()) return;
    if (notes.Tag.empty()) notes.Tag = ofBase.Tag;
    if (notes.DynamicType == nullptr) {
        notes.DynamicType = ofBase.DynamicType;
        notes.DynamicOffset = ofBase.DynamicOffset + offset;
    }
    notes.Ancestors.push_back({&base, ofBase.Type, offset});
    for (const CAncestor& ancestor : ofBase.Ancestors)
        notes.Ancestors.push_back({ancestor.Infor, ancestor.Type, ancestor.Offset + offset});
}

} // namespace

void InheritNotes(CClassInfor& derived, CClassInfor::AttribPosition copies, const CClassInfor& base,
                  unsigned long offset)
{
    const CClassNotes* const ofBase = NotesOf(base);
    CClassNotes* const notes = ofBase != nullptr ? NotesToFill(derived) : nullptr;
    if (notes == nullptr) return;
    InheritClassNotes(*notes, base, *ofBase, offset);
    for (const CAttribInfor& original : base.AttribList) {
        const CAttribInfor& copy = *copies++;
        if (const CMemberNotes* const known = NotesOf(base, original)) notes->Members[&copy] = *known;
    }
}

void ForgetNotes(CClassInfor& infor, const CAttribInfor& record) noexcept
{
    if (!infor.Mark.Is(detail::CFinishedMark::DRAFT)) return;
    CClassNotes* const notes = static_cast<CFinishedClass&>(infor).Notes;
    if (notes != nullptr) notes->Members.erase(&record);
}

namespace {

/// Records whose names were taken are gone from the list.
void ForgetRemoved(CClassNotes& notes, const CClassInfor& infor)
{
    std::unordered_set<const CAttribInfor*> records;
    for (const CAttribInfor& record : infor.AttribList)
        records.insert(&record);
    for (auto member = notes.Members.begin(); member != notes.Members.end();)
        member = records.count(member->first) != 0 ? std::next(member) : notes.Members.erase(member);
}

void StyleKeys(CClassNotes& notes, const CClassInfor& infor)
{
    if (notes.Style == KeyStyle::AS_IT_IS) return;
    for (const CAttribInfor& record : infor.AttribList) {
        if (record.IsInherited != 0) continue;
        std::string key = StyledKey(notes.Style, record.Name);
        if (key == record.Name) continue;
        CMemberNotes& member = notes.Members[&record];
        if (member.Key.empty()) member.Key = std::move(key);
    }
}

/// What the class says itself goes before what a base says, and the place for unknown keys says that they are kept.
void SettleUnknown(CClassNotes& notes)
{
    const bool hasOwnKeeper = std::any_of(notes.Members.begin(), notes.Members.end(), [](const auto& member) {
        return member.second.KeepsUnknown && member.first->IsInherited == 0;
    });
    if (hasOwnKeeper && !notes.IsUnknownOwn) notes.Unknown = UnknownKeys::KEEP;
    notes.IsUnknownSaid = notes.Unknown != UnknownKeys::BY_CLASS;
    if (!notes.IsUnknownSaid) notes.Unknown = UnknownKeys::PROBLEM;
}

/// Behind a pointer such an object would be written, and deleted, as what it is not.
void WarnOfTagOfPlainBase(const CClassNotes& notes, const CClassInfor& infor)
{
    if (!notes.HasTagOfPlainBase || notes.DynamicType != nullptr) return;
    helper::LogError(
        "The class %s has the tag %s of a base that is not polymorphic, as the class is: it tells the class "
        "in a std::variant, but not behind a pointer; give the base a virtual destructor, or the class a "
        "tag of its own",
        infor.Name.c_str(), notes.Tag.c_str());
}

} // namespace

void SettleNotes(CFinishedClass& infor)
{
    if (infor.Notes == nullptr) return;
    CClassNotes& notes = *infor.Notes;
    ForgetRemoved(notes, infor);
    StyleKeys(notes, infor);
    SettleUnknown(notes);
    WarnOfTagOfPlainBase(notes, infor);
    if (!notes.Tag.empty() && notes.TagValue.empty()) notes.TagValue = QualifiedNameOf(infor);
}

} // namespace typeinfo

namespace detail {

const CEnumerationSlot* EnumerationOf(const CClassInfor& owner, const CAttribInfor& attrib) noexcept
{
    const typeinfo::CMemberNotes* const notes = typeinfo::NotesOf(owner, attrib);
    return notes != nullptr ? notes->Enumeration : nullptr;
}

const CEnumerationSlot* EnumerationOf(const CContainerInfor& container) noexcept
{
    return typeinfo::EnumerationOfElements(container);
}

const CShape* ShapeOf(const CCustomBasicTypeInfor& infor) noexcept { return typeinfo::ShapeOf(infor); }

std::string_view NameOfValue(const CEnumerationSlot& enumeration, long long value) noexcept
{
    unsigned long number = 0;
    while (number < enumeration.Count && enumeration.Values[number] != value)
        ++number;
    if (number == enumeration.Count) return {};
    std::string_view names = enumeration.Names;
    for (; number != 0; --number)
        names.remove_prefix(names.find(',') + 1);
    names = names.substr(0, names.find(','));
    names.remove_prefix(names.find_first_not_of(' '));
    return names.substr(0, names.find_last_not_of(' ') + 1);
}

} // namespace detail

const CClassMetadata& MetadataOf(const CClassInfor& infor)
{
    alignas(CClassMetadata) static char s_room[sizeof(CClassMetadata)];
    static const CClassMetadata& s_none = *new (s_room) CClassMetadata(); // never destroyed
    const typeinfo::CClassNotes* const notes = typeinfo::NotesOf(infor);
    return notes != nullptr ? *notes : s_none;
}

const CAttribMetadata& MetadataOf(const CClassInfor& owner, const CAttribInfor& attrib)
{
    alignas(CAttribMetadata) static char s_room[sizeof(CAttribMetadata)];
    static const CAttribMetadata& s_none = *new (s_room) CAttribMetadata(); // never destroyed either
    const typeinfo::CMemberNotes* const notes = typeinfo::NotesOf(owner, attrib);
    return notes != nullptr ? *notes : s_none;
}

std::string CheckObject(const CClassInfor& infor, const void* object)
{
    const typeinfo::CClassNotes* const notes = typeinfo::NotesOf(infor);
    return notes != nullptr ? typeinfo::FirstComplaint(*notes, object) : std::string();
}

} // namespace vexa
