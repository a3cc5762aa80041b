#ifndef ORDANA_FORMATS_YAML_SOURCE_H
#define ORDANA_FORMATS_YAML_SOURCE_H

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <vexa/event.h>
#include <vexa/policy.h>
#include <yaml.h>

namespace vexa::yaml {

/// The events of a YAML text, which must outlive it.
class CYamlSource : public CEventSource {
public:
    CYamlSource(std::string_view text, const CReadPolicy& policy);
    CYamlSource(const CYamlSource&) = delete;
    CYamlSource& operator=(const CYamlSource&) = delete;
    ~CYamlSource() override;

    CFormatAbilities Abilities() const override;
    bool Next(CEvent& event, CProblem& problem) override;
    void Locate(CTextPlace& place) override;

private:
    /// What libyaml has told, or an alias by what it stands for.
    struct CItem {
        yaml_event_type_t Kind = YAML_NO_EVENT;
        std::string Text;
        std::string Tag; ///< of the core schema without its prefix, `!` for a text; else empty
        bool IsPlain = false;
        CTextPlace Place;
        std::size_t First = 0; ///< of an alias: the items that it stands for
        std::size_t Last = 0;
    };
    /// An array or object that is open.
    struct CLevel {
        bool IsObject = false;
        bool IsKeyNext = true;
        std::map<std::string, CTextPlace> Keys;
    };
    struct CAnchor {
        std::string Name;
        std::size_t First; ///< item
        std::size_t Depth;
    };

    bool Take(CItem& item, CProblem& problem);
    bool Parse(CItem& item, CProblem& problem);
    bool Fill(CItem& item, const yaml_event_t& parsed, CProblem& problem);
    void Keep(const CItem& item, const yaml_char_t* anchor);
    bool Expand(const CItem& alias, CProblem& problem);
    bool Give(CEvent& event, CProblem& problem);
    bool GiveKey(CEvent& event, CProblem& problem);
    bool GiveScalar(CEvent& event, CProblem& problem);
    bool FailAsLibrary(CProblem& problem);
    bool Fail(CProblem& problem, ProblemCode code, const std::string& expected, const CTextPlace& place);
    CTextPlace PlaceOf(const yaml_mark_t& start, const yaml_mark_t& end);
    std::size_t ByteOf(std::size_t character);

    const std::string_view m_text;
    const CReadPolicy& m_policy;
    yaml_parser_t m_parser;
    CItem m_item;
    std::string m_number;
    std::vector<CLevel> m_levels;
    bool m_hasValue = false; ///< the document's value has begun

    // Anchors: what libyaml tells while one is open is kept.
    std::size_t m_depth = 0; ///< of what libyaml has told
    std::vector<CAnchor> m_open;
    std::map<std::string, CItem> m_anchors; ///< the aliases of those that are whole
    std::vector<CItem> m_kept;
    std::vector<CItem> m_expanding; ///< aliases, the innermost last: First is the item that comes next
    std::size_t m_bytes = 0;        ///< of what aliases have expanded to
    std::size_t m_maxBytes;

    // Where the last place was, since libyaml counts characters.
    std::size_t m_character = 0;
    std::size_t m_byte = 0;
};

} // namespace vexa::yaml

#endif
