#ifndef VEXA_TESTS_SUPPORT_EVERYTHING_OBJECTS_H
#define VEXA_TESTS_SUPPORT_EVERYTHING_OBJECTS_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <vexa/refrence.h>

#include "support/everything_comparison.h"
#include "support/independent_json.h"

/// The objects of described_everything.h without their C++ types: what is tested through them is compiled once for all
/// classes.

namespace vexa_test::everything {

/// What can be done with the objects of a class.
struct CKind {
    std::shared_ptr<void> (*Make)();
    std::shared_ptr<void> (*MakeRandom)(std::uint64_t seed);
    vexa::CRefrence (*RefOf)(void* object);
    bool (*Same)(Comparison& comparison, const void* left, const void* right);
    bool (*Agrees)(Comparison& comparison, const Json& json, const void* object);
    bool LeavesOut; ///< what is written does not name every attribute
};

/// All of them, in the same order in every program.
const std::vector<CKind>& Kinds();

class CAnyObject {
public:
    explicit CAnyObject(const CKind& kind) : m_kind(&kind), m_object(kind.Make()) {}
    /// The same object for the same number.
    CAnyObject(const CKind& kind, std::uint64_t seed) : m_kind(&kind), m_object(kind.MakeRandom(seed)) {}

    const CKind& Kind() const { return *m_kind; }
    vexa::CRefrence Ref() const { return m_kind->RefOf(m_object.get()); }

    friend bool Same(Comparison& comparison, const CAnyObject& left, const CAnyObject& right)
    {
        return left.m_kind->Same(comparison, left.m_object.get(), right.m_object.get());
    }
    friend bool Agrees(Comparison& comparison, const Json& json, const CAnyObject& object)
    {
        return object.m_kind->Agrees(comparison, json, object.m_object.get());
    }

private:
    const CKind* m_kind;
    std::shared_ptr<void> m_object;
};

std::string NameOf(const CKind& kind);

} // namespace vexa_test::everything

#endif
