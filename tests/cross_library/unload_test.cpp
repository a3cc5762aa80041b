// The classes of a plugin that is loaded, unloaded and loaded again: its path is the first argument. They are found
// while it is loaded only.

#include <dlfcn.h>

#include <cstdio>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "loaded_shape.h"

namespace {

int s_failures = 0;

void Expect(const std::string& expected, const std::string& found, const char* what)
{
    if (expected == found) return;
    ++s_failures;
    std::fprintf(stderr, "%s: expected %s, found %s\n", what, expected.c_str(), found.c_str());
}

/// The classes of the program and of the plugin that are found, by their names. The shape has a descriptor in each.
std::string Found()
{
    std::set<std::string> names;
    vexa::ForEachClass([&names](const vexa::CClassInfor& infor) {
        const std::string& name = vexa::QualifiedNameOf(infor);
        if (name.find("loaded::") == 0 || name.find("registered by hand") == 0) names.insert(name);
        if (vexa::FindClass(name) == nullptr) names.insert(name + " is not found");
    });
    std::string text;
    for (const std::string& name : names)
        text += name + ' ';
    return text;
}

std::string TagValues()
{
    std::string values;
    for (const std::string& value : vexa::TagValuesOf(vexa::ClassInforOf<loaded::Shape>()))
        values += value + ' ';
    return values;
}

std::string ClassOf(const loaded::Shape& shape)
{
    const void* whole = nullptr;
    return vexa::QualifiedNameOf(vexa::DynamicClassOf(vexa::ClassInforOf<loaded::Shape>(), &shape, whole));
}

class CPlugin {
public:
    explicit CPlugin(const char* path) : m_handle(dlopen(path, RTLD_NOW | RTLD_LOCAL))
    {
        if (m_handle == nullptr) Expect("a handle", dlerror(), "dlopen");
    }
    CPlugin(const CPlugin&) = delete;
    CPlugin& operator=(const CPlugin&) = delete;
    ~CPlugin() { dlclose(m_handle); }

    template<class Result>
    Result Call(const char* name) const
    {
        return reinterpret_cast<Result (*)()>(dlsym(m_handle, name))();
    }
    std::string ClassOfMade(const char* maker) const
    {
        return ClassOf(*std::unique_ptr<loaded::Shape>(Call<loaded::Shape*>(maker)));
    }

private:
    void* m_handle;
};

/// What is registered by hand belongs to whoever registered it. These outlive the plugin.
using DescriptorsByHand = std::vector<std::unique_ptr<vexa::CClassInfor>>;

void TestLoaded(const char* path, bool isRegisteredByHand, DescriptorsByHand& byHand)
{
    const CPlugin plugin(path);
    const std::string classes = "loaded::(anonymous namespace)::Star loaded::Comet loaded::Shape ";
    Expect(classes, Found(), "classes of the loaded plugin");
    Expect("loaded::Comet loaded::Shape star ", TagValues(), "tag values of the loaded plugin");
    Expect("loaded::(anonymous namespace)::Star", plugin.ClassOfMade("MakeStar"), "class of a star");
    Expect("loaded::Comet", plugin.ClassOfMade("MakeComet"), "class of a comet");
    Expect("loaded::Shape", plugin.ClassOfMade("MakeShape"), "class of a shape of the plugin's");
    if (!isRegisteredByHand) return;
    byHand.emplace_back(plugin.Call<vexa::CClassInfor*>("RegisterByHand"));
    Expect(classes + "registered by hand in the plugin ", Found(), "all classes of the loaded plugin");
}

void TestUnloaded(const char* path)
{
    if (dlopen(path, RTLD_NOW | RTLD_NOLOAD) != nullptr) Expect("unloaded", "still loaded", path);
    Expect("loaded::Shape ", Found(), "classes without the plugin");
    Expect("loaded::Shape ", TagValues(), "tag values without the plugin");
    Expect("loaded::Shape", ClassOf(loaded::Shape()), "class of a shape");
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 2) return 2;
    TestUnloaded(arguments[1]);
    DescriptorsByHand byHand;
    for (int round = 0; round < 5; ++round) {
        TestLoaded(arguments[1], round % 2 == 0, byHand);
        TestUnloaded(arguments[1]);
    }
    return s_failures == 0 ? 0 : 1;
}
