#ifndef VEXA_TESTS_SUPPORT_RANDOM_JSON_H
#define VEXA_TESTS_SUPPORT_RANDOM_JSON_H

#include <string>
#include <vector>

#include <vexa/class_infor.h>
#include <vexa/container_infor.h>

#include "support/text_everything.h"

/// Random JSON texts for a described type: keys in any order, repeated or missing, blanks anywhere. Members of unions
/// come mostly, but not always, behind a selector that makes them active.

namespace vexa_test {

class RandomJson {
public:
    explicit RandomJson(Dice& dice) : m_dice(dice) {}

    /// Integers that more often than not select something; also where a number is meant for an address.
    std::string Text(const vexa::CGnlTypeInfor& type, int depth = 4)
    {
        using namespace vexa::Enum;
        if (type.DataType == DT_CLASS) return Object(*static_cast<const vexa::CClassInfor*>(type.DetailInfor), depth);
        if (type.IsContainer())
            return Array(static_cast<const vexa::CContainerInfor*>(type.DetailInfor)->ElementType, depth);
        if (type.DataType == DT_BOOL) return m_dice.Below(2) == 0 ? "true" : "false";
        if (type.IsNumericTypeEx()) return Number();
        return String();
    }

private:
    std::string Number()
    {
        const std::string sign = m_dice.Below(8) == 0 ? "-" : "";
        return sign + (m_dice.Below(4) == 0 ? "4702111234474983745" : std::to_string(m_dice.Below(5)));
    }
    std::string String()
    {
        static const std::vector<std::string> parts = {"a", "tok", "\\u0041", "\\n", "a longer text, kept elsewhere",
                                                       "7"};
        std::string text = "\"";
        for (std::size_t i = m_dice.Below(3); i > 0; --i)
            text += parts[m_dice.Below(parts.size())];
        return text + '"';
    }
    std::string Array(const vexa::CGnlTypeInfor& element, int depth)
    {
        std::string text = "[" + Blank();
        const std::size_t count = depth > 0 ? m_dice.Below(4) : 0;
        for (std::size_t i = 0; i < count; ++i)
            text += (i > 0 ? "," : "") + Blank() + Text(element, depth - 1) + Blank();
        return text + "]";
    }
    std::string Object(const vexa::CClassInfor& infor, int depth)
    {
        std::vector<const vexa::CAttribInfor*> attribs;
        for (const vexa::CAttribInfor& attrib : infor.AttribList)
            attribs.push_back(&attrib);
        if (attribs.empty()) return "{}";
        std::string text = "{";
        const std::size_t count = depth > 0 ? 1 + m_dice.Below(2 * attribs.size()) : 1;
        for (std::size_t i = 0; i < count; ++i) {
            const vexa::CAttribInfor& attrib = *attribs[m_dice.Below(attribs.size())];
            text += i > 0 ? "," : "";
            if (attrib.UnionSelector != nullptr && m_dice.Below(8) != 0)
                text += '"' + attrib.UnionSelector->Name + "\":" + std::to_string(attrib.UnionAttribEnum) + ',';
            text += Blank() + '"' + attrib.Name + '"' + Blank() + ':' + Blank() + Text(attrib.TypeInfor, depth - 1) +
                    Blank();
        }
        return text + "}";
    }
    std::string Blank() { return m_dice.Below(10) == 0 ? " \n" : ""; }

    Dice& m_dice;
};

} // namespace vexa_test

#endif
