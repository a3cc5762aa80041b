#ifndef VEXA_TESTS_ACCEPTANCE_HAND_MADE_CLASS_H
#define VEXA_TESTS_ACCEPTANCE_HAND_MADE_CLASS_H

#include <list>
#include <memory>
#include <string>

#include <vexa/vexa.h>

/// One class, described by the headers, and once more by hand through the compiled interface alone.

namespace hand_made {

struct Part {
    int x = 1;
    std::string text = "t";
};

struct Base {
    long id = 2;
};

struct Whole : Base {
    Whole() = default;
    Whole(const Whole&) = delete;
    Whole& operator=(const Whole&) = delete;
    ~Whole() { delete next; }

    std::string name = "whole";
    vexa::MayNull<int> mayNull = 3;
    Part part;
    std::unique_ptr<Part> owned;
    const Part* seen = nullptr;
    Whole* next = nullptr;
    std::list<int> numbers{4, 5};
    short kind = 0;
    union {
        int code = 6;
        double rate;
    };
    std::string secret = "s";
};

VEXA_DESCRIBE(Part, x, text)
VEXA_DESCRIBE(Base, id)
VEXA_DESCRIBE_CLASS(Whole)
{
    about.Base<Base>();
    about.Attrib("name", &Whole::name).ID(1);
    about.Attrib("mayNull", &Whole::mayNull).ID(70);
    about.Attrib("part", &Whole::part);
    about.Attrib("owned", &Whole::owned);
    about.Attrib("seen", &Whole::seen);
    about.Attrib("next", &Whole::next);
    about.Attrib("numbers", &Whole::numbers);
    about.Attrib("kind", &Whole::kind);
    about.Attrib("code", &Whole::code).ActiveWhen("kind", 0);
    about.Attrib("rate", &Whole::rate).ActiveWhen("kind", 1);
    about.Attrib("secret", &Whole::secret).Private().Masked();
}

using namespace vexa::Enum;
using vexa::CAttribInfor;
using vexa::CClassInfor;
using vexa::CContainerInfor;
using vexa::CGnlTypeInfor;

template<class T>
void* Make()
{
    return new T();
}
template<class T>
void Destroy(void* object)
{
    delete static_cast<T*>(object);
}

inline CClassInfor* g_part = nullptr;
inline CClassInfor* g_base = nullptr;
inline CClassInfor* g_whole = nullptr;

/// The offset of a member, as the compiler has it.
template<class T, class Member>
unsigned short At(Member T::*member)
{
    static const T object{};
    return static_cast<unsigned short>(reinterpret_cast<const char*>(&(object.*member)) -
                                       reinterpret_cast<const char*>(&object));
}

inline CAttribInfor& Add(CClassInfor& about, const char* name, unsigned short offset, const CGnlTypeInfor& type,
                         short id = -1, AccessSpecifierEnum access = AS_PUBLIC)
{
    CAttribInfor& record = about.AddAttribInfor(access, offset, name, id);
    record.TypeInfor = type;
    return record;
}

inline const CClassInfor& PartByHand()
{
    return *CClassInfor::InitClassInfor(g_part, "Part", sizeof(Part), &Make<Part>, &Destroy<Part>,
                                        [](CClassInfor& about, AccessSpecifierEnum) {
                                            Add(about, "x", At(&Part::x), CGnlTypeInfor(DT_INT));
                                            Add(about, "text", At(&Part::text), CGnlTypeInfor(DT_STD_STRING));
                                        });
}

inline const CClassInfor& BaseByHand()
{
    return *CClassInfor::InitClassInfor(
        g_base, "Base", sizeof(Base), &Make<Base>, &Destroy<Base>,
        [](CClassInfor& about, AccessSpecifierEnum) { Add(about, "id", At(&Base::id), CGnlTypeInfor(DT_LONG)); });
}

/// A list of int, operation by operation.
using Numbers = std::list<int>;

template<class Cursor>
void* Look(Numbers& numbers, Cursor cursor, Cursor end)
{
    static_cast<void>(numbers);
    return cursor == end ? nullptr : &*cursor;
}

inline void FillWalks(CContainerInfor& infor)
{
    infor.Begin = [](void* list, void** first) -> void* {
        auto& numbers = *static_cast<Numbers*>(list);
        *first = Look(numbers, numbers.begin(), numbers.end());
        return new Numbers::iterator(numbers.begin());
    };
    infor.Next = [](void* list, void* cursor) -> void* {
        auto& numbers = *static_cast<Numbers*>(list);
        return Look(numbers, ++*static_cast<Numbers::iterator*>(cursor), numbers.end());
    };
    infor.Release = [](void* cursor) { delete static_cast<Numbers::iterator*>(cursor); };
    infor.RBegin = [](void* list, void** last) -> void* {
        auto& numbers = *static_cast<Numbers*>(list);
        *last = Look(numbers, numbers.rbegin(), numbers.rend());
        return new Numbers::reverse_iterator(numbers.rbegin());
    };
    infor.RNext = [](void* list, void* cursor) -> void* {
        auto& numbers = *static_cast<Numbers*>(list);
        return Look(numbers, ++*static_cast<Numbers::reverse_iterator*>(cursor), numbers.rend());
    };
    infor.RRelease = [](void* cursor) { delete static_cast<Numbers::reverse_iterator*>(cursor); };
}

inline const CContainerInfor& NumbersByHand()
{
    static const CContainerInfor* const infor = [] {
        static CContainerInfor made;
        made.SetBaseTypeInfor("std::list", sizeof(Numbers), &Make<Numbers>, &Destroy<Numbers>, 0);
        made.ElementType = CGnlTypeInfor(DT_INT);
        made.Append = [](void* list) -> void* { return &static_cast<Numbers*>(list)->emplace_back(); };
        made.Clear = [](void* list) { static_cast<Numbers*>(list)->clear(); };
        made.Count = [](void* list) -> unsigned long { return static_cast<Numbers*>(list)->size(); };
        FillWalks(made);
        return &made;
    }();
    return *infor;
}

inline const CClassInfor& WholeByHand();

inline void AddUnion(CClassInfor& about)
{
    const CAttribInfor& kind = Add(about, "kind", At(&Whole::kind), CGnlTypeInfor(DT_SHORT));
    CAttribInfor& code = Add(about, "code", At(&Whole::code), CGnlTypeInfor(DT_INT));
    CAttribInfor& rate = Add(about, "rate", At(&Whole::rate), CGnlTypeInfor(DT_DOUBLE));
    code.UnionSelector = rate.UnionSelector = &kind;
    code.UnionAttribEnum = 0;
    rate.UnionAttribEnum = 1;
}

inline void DescribeWhole(CClassInfor& about, AccessSpecifierEnum)
{
    const Whole object{};
    const auto* const base = static_cast<const Base*>(&object);
    about.InitBaseClass(
        {{static_cast<unsigned long>(reinterpret_cast<const char*>(base) - reinterpret_cast<const char*>(&object)),
          &BaseByHand()}});
    CGnlTypeInfor mayNull(DT_INT, HF_MAY_NULL | HF_NULLABLE);
    mayNull.NullFlagOffset = 0;
    mayNull.ValueOffset = alignof(int);
    constexpr unsigned OWNED = HF_NULLABLE | HF_POINTER;
    Add(about, "name", At(&Whole::name), CGnlTypeInfor(DT_STD_STRING), 1);
    Add(about, "mayNull", At(&Whole::mayNull), mayNull, 70);
    Add(about, "part", At(&Whole::part), CGnlTypeInfor(DT_CLASS, 0, &PartByHand()));
    Add(about, "owned", At(&Whole::owned), CGnlTypeInfor(DT_CLASS, OWNED, &PartByHand()));
    Add(about, "seen", At(&Whole::seen), CGnlTypeInfor(DT_CLASS, OWNED | HF_CONST, &PartByHand()));
    Add(about, "next", At(&Whole::next), CGnlTypeInfor(DT_CLASS, OWNED, &WholeByHand()));
    Add(about, "numbers", At(&Whole::numbers), CGnlTypeInfor(DT_SEQUENCE_B, 0, &NumbersByHand()));
    AddUnion(about);
    Add(about, "secret", At(&Whole::secret), CGnlTypeInfor(DT_STD_STRING), -1, AS_PRIVATE).IsMasked = 1;
}

inline const CClassInfor& WholeByHand()
{
    return *CClassInfor::InitClassInfor(g_whole, "Whole", sizeof(Whole), &Make<Whole>, &Destroy<Whole>, &DescribeWhole);
}

/// A writable reference that knows the object by the hand-made descriptor only.
inline vexa::CRefrence ByHand(Whole& object) { return {CGnlTypeInfor(DT_CLASS, 0, &WholeByHand()), &object}; }

} // namespace hand_made

#endif
