// Threads that look for classes and read objects that stand for others, while a plugin with such classes is loaded: its
// path is the first argument.

#include <dlfcn.h>

#include <atomic>
#include <cstdio>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <vexa/interchange.h>

#include "loaded_shape.h"

namespace {

std::atomic<int> s_failures{0};

void Expect(bool isRight, const char* what)
{
    if (isRight) return;
    ++s_failures;
    std::fprintf(stderr, "%s\n", what);
}

/// One way to look at the classes that are there, whether those of the plugin are yet or not.
void LookOnce()
{
    bool isShapeThere = false;
    vexa::ForEachClass([&isShapeThere](const vexa::CClassInfor& infor) {
        isShapeThere = isShapeThere || vexa::QualifiedNameOf(infor) == "loaded::Shape";
    });
    Expect(isShapeThere, "the shape is not found");
    if (const vexa::CClassInfor* const comet = vexa::FindClass("loaded::Comet"))
        Expect(comet->FindAttribInforByFlatName("tail") != nullptr, "the comet is not whole");

    std::unique_ptr<loaded::Shape> shape;
    vexa::CReport report;
    Expect(vexa::ReadJson(shape, R"({"id":7,"kind":"loaded::Shape"})", report) && shape->id == 7, "it is not read");
    Expect(vexa::WriteJson(shape) == R"({"kind":"loaded::Shape","id":7})", "it is written otherwise");
    const bool isStar = vexa::ReadJson(shape, R"({"kind":"star","points":6})", report);
    Expect(isStar == report.IsEmpty(), "the report says otherwise");
    Expect(vexa::WriteJson(shape) ==
               (isStar ? R"({"kind":"star","id":1,"points":6})" : R"({"kind":"loaded::Shape","id":7})"),
           "the star is written otherwise");
}

void LookWhileLoading(const char* path)
{
    std::atomic<bool> isLoaded{false};
    std::atomic<int> ready{0};
    constexpr int THREADS = 4;
    std::vector<std::thread> threads;
    for (int i = 0; i < THREADS; ++i) {
        threads.emplace_back([&] {
            LookOnce();
            ++ready;
            while (!isLoaded)
                LookOnce();
            LookOnce();
        });
    }
    while (ready != THREADS)
        std::this_thread::yield();
    void* const plugin = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    Expect(plugin != nullptr, "the plugin is not loaded");
    isLoaded = true;
    for (std::thread& thread : threads)
        thread.join();
    Expect(vexa::FindClass("loaded::Comet") != nullptr, "the comet is not found");
    if (plugin != nullptr) dlclose(plugin);
    Expect(vexa::FindClass("loaded::Comet") == nullptr, "the comet is still found");
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 2) return 2;
    for (int round = 0; round < 5; ++round)
        LookWhileLoading(arguments[1]);
    return s_failures == 0 ? 0 : 1;
}
