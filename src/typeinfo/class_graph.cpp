// Which class names which: the rings of classes that lead back to one another, found by Tarjan's algorithm in one walk
// over every class that a description leads to.

#include "typeinfo/class_graph.h"

#include <algorithm>
#include <memory>
#include <unordered_map>

#include <vexa/detail/description.h>

namespace vexa {
namespace detail {

/// The classes that one description names, in its order.
class CSurvey {
public:
    explicit CSurvey(const CClassSlot& surveyed)
    {
        CDescriptionBase about(*this);
        surveyed.Describe(about);
    }
    void Add(const CTypeSource& type, bool isByValue);

    struct CNamed {
        CClassSlot* Slot;
        bool IsByValue;
    };
    std::vector<CNamed> Named;
};

void CSurvey::Add(const CTypeSource& type, bool isByValue)
{
    if (type.Detail == nullptr) return;
    if (type.Detail->Form == SlotForm::CLASS)
        Named.push_back({static_cast<CClassSlot*>(type.Detail), isByValue});
    else if (type.Detail->Form == SlotForm::CONTAINER)
        Add(static_cast<const CContainerSlot*>(type.Detail)->Record.Element, false);
}

void AddToSurvey(CSurvey& survey, const CTypeSource& type, bool isByValue) { survey.Add(type, isByValue); }

} // namespace detail

namespace typeinfo {
namespace {

using detail::CClassSlot;

struct CNode {
    CClassSlot* Slot = nullptr;
    std::vector<CNode*> Named;  ///< the classes that its description names
    std::vector<CNode*> Wholes; ///< those that hold it by value
    std::size_t Number = 0;     ///< in the order in which the nodes are met
    std::size_t Lowest = 0;     ///< the lowest number that it leads back to
    std::size_t Ring = 0;       ///< equal for classes that lead back to one another; 0 while it is open
    bool IsMarked = false;
};

class CClassGraph {
public:
    CNode& NodeOf(CClassSlot& slot)
    {
        const auto [position, isNew] = m_nodes.try_emplace(&slot);
        CNode& node = position->second;
        if (isNew) Explore(node, slot);
        return node;
    }

private:
    void Explore(CNode& node, CClassSlot& slot)
    {
        node.Slot = &slot;
        node.Number = node.Lowest = m_nodes.size();
        m_open.push_back(&node);
        for (const auto& [named, isByValue] : detail::CSurvey(slot).Named) {
            // What is published is complete, and so is all that it leads to.
            if (named->Published.load(std::memory_order_relaxed) != nullptr) continue;
            CNode& other = NodeOf(*named);
            node.Named.push_back(&other);
            if (isByValue) other.Wholes.push_back(&node);
            if (other.Ring == 0) node.Lowest = std::min(node.Lowest, other.Lowest);
        }
        if (node.Lowest == node.Number) CloseRing(node);
    }
    void CloseRing(const CNode& first)
    {
        CNode* closed = nullptr;
        do {
            closed = m_open.back();
            closed->Ring = first.Number;
            m_open.pop_back();
        } while (closed != &first);
    }

    std::unordered_map<CClassSlot*, CNode> m_nodes;
    std::vector<CNode*> m_open;
};

std::unique_ptr<CClassGraph> s_graph;

/// One that has been started has had its own wholes started before.
bool IsUnstarted(const CNode& node) { return node.Slot->Made == nullptr; }

/// The node itself, and its unstarted wholes, all of them marked.
std::vector<CNode*> MarkWholes(CNode& part)
{
    std::vector<CNode*> wholes{&part};
    part.IsMarked = true;
    for (std::size_t next = 0; next < wholes.size(); ++next) {
        for (CNode* const whole : wholes[next]->Wholes) {
            if (whole->IsMarked || whole->Ring != part.Ring || !IsUnstarted(*whole)) continue;
            wholes.push_back(whole);
            whole->IsMarked = true;
        }
    }
    return wholes;
}

/// The nodes of the ring, in the order in which they are met, nearest first.
std::vector<CNode*> RingFrom(CNode& first)
{
    std::vector<CNode*> ring{&first};
    std::unordered_map<CNode*, bool> isMet{{&first, true}};
    for (std::size_t next = 0; next < ring.size(); ++next) {
        for (CNode* const named : ring[next]->Named) {
            if (named->Ring == first.Ring && isMet.try_emplace(named, true).second) ring.push_back(named);
        }
    }
    return ring;
}

std::vector<CClassSlot*> FindUnstartedWholes(CNode& part)
{
    const std::vector<CNode*> wholes = MarkWholes(part);
    std::vector<CClassSlot*> found;
    if (wholes.size() > 1) {
        for (const CNode* const node : RingFrom(part)) {
            if (node->IsMarked && node != &part) found.push_back(node->Slot);
        }
    }
    for (CNode* const whole : wholes)
        whole->IsMarked = false;
    return found;
}

} // namespace

std::vector<detail::CClassSlot*> UnstartedWholesOf(detail::CClassSlot& slot)
{
    if (s_graph == nullptr) s_graph = std::make_unique<CClassGraph>();
    // Explored half or marked half, it is of no use to anyone: whoever comes next begins anew.
    std::unique_ptr<CClassGraph> graph = std::move(s_graph);
    std::vector<CClassSlot*> wholes = FindUnstartedWholes(graph->NodeOf(slot));
    s_graph = std::move(graph);
    return wholes;
}

void ForgetClassGraph() noexcept { s_graph.reset(); }

} // namespace typeinfo
} // namespace vexa
