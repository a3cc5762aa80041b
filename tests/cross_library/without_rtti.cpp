// A program without run-time type information: everything but the tag of a polymorphic class works.

#include <cstdio>
#include <memory>
#include <string>

#include <vexa/vexa.h>

namespace without_rtti {

struct Base {
    Base() = default;
    Base(const Base&) = default;
    Base& operator=(const Base&) = default;
    virtual ~Base() = default;
    int baseId = 1;
};
VEXA_DESCRIBE_CLASS(Base)
{
    about.KeyStyle(vexa::KeyStyle::SNAKE);
    about.Attrib("baseId", &Base::baseId).Range(0, 10);
}
struct Derived : Base {
    std::string text = "t";
    std::unique_ptr<Base> next;
};
VEXA_DESCRIBE_CLASS(Derived)
{
    about.Base<Base>();
    about.Attrib("text", &Derived::text);
    about.Attrib("next", &Derived::next);
    about.Check([](const Derived& object) { return object.baseId != 3; }, "it is 3");
}
struct Plain {
    int a = 2;
};
VEXA_DESCRIBE_CLASS(Plain)
{
    about.Tag("kind");
    about.Attrib("a", &Plain::a);
}

} // namespace without_rtti

namespace {

int s_failures = 0;

void Expect(const std::string& expected, const std::string& found)
{
    if (expected == found) return;
    ++s_failures;
    std::fprintf(stderr, "expected %s, found %s\n", expected.c_str(), found.c_str());
}

} // namespace

int main()
{
    using namespace without_rtti;
    const vexa::CClassInfor& infor = vexa::ClassInforOf<Derived>();
    Derived object;
    std::string json;
    vexa::ToJson(json, object);
    Expect(R"({"baseId":1,"text":"t"})", json);
    vexa::FromJson(object, R"({"baseId":3,"text":"u","next":{"baseId":4}})");
    Expect("3u4", std::to_string(object.baseId) + object.text + std::to_string(object.next->baseId));
    Expect("it is 3", vexa::CheckObject(infor, &object));
    Expect("base_id", vexa::MetadataOf(infor, infor.AttribList.front()).Key);
    Expect("Derived", vexa::FindClass("without_rtti::Derived")->Name);
    const void* whole = nullptr;
    const Base& base = object;
    Expect("Base", vexa::DynamicClassOf(vexa::ClassInforOf<Base>(), &base, whole).Name);
    Expect("without_rtti::Plain", vexa::TagValuesOf(vexa::ClassInforOf<Plain>()).front());
    return s_failures == 0 ? 0 : 1;
}
