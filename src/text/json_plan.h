#ifndef VEXA_TEXT_JSON_PLAN_H
#define VEXA_TEXT_JSON_PLAN_H

#include "typeinfo/plan.h"

// Which plans JSON text is read along. Everything else is read by the description.

namespace vexa::text {

/// The plan of a class, or null: unions must be watched, and a key ends at its first quotation mark.
inline const typeinfo::CPlan* ReadablePlanOf(const CClassInfor& infor) noexcept
{
    const typeinfo::CPlan* const plan = typeinfo::PlanOf(infor);
    return plan != nullptr && !plan->HasUnions() && !plan->HasQuotedNames() ? plan : nullptr;
}

/// The plan of a container that is appended to, or null.
inline const typeinfo::CContainerPlan* ReadablePlanOf(const CGnlTypeInfor& container) noexcept
{
    const auto& infor = *static_cast<const CContainerInfor*>(container.DetailInfor);
    if (container.IsAssociative() || infor.Append == nullptr) return nullptr;
    const typeinfo::CContainerPlan* const plan = typeinfo::PlanOf(infor);
    return plan != nullptr && plan->Shape() != typeinfo::CContainerPlan::Form::UNUSUAL ? plan : nullptr;
}

} // namespace vexa::text

#endif
