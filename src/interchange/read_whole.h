#ifndef VEXA_INTERCHANGE_READ_WHOLE_H
#define VEXA_INTERCHANGE_READ_WHOLE_H

#include "interchange/reader.h"
#include "interchange/undo.h"

namespace vexa::interchange {

template<class Source>
class CSourceLocator final : public CLocator {
public:
    explicit CSourceLocator(Source& source) : m_source(source) {}
    void Locate(CTextPlace& place) override { m_source.Locate(place); }

private:
    Source& m_source;
};

/// Reads one value into an object; see vexa/detail/interchange.h. \param text the whole text where it lies in memory.
/// \param start where that begins in a longer one
template<class Source>
bool ReadWhole(const CForm& root, void* object, Source& source, std::string_view text, CReport& report,
               const CReadPolicy& policy, const CTextPlace* start = nullptr)
{
    CSourceLocator<Source> locator(source);
    CReadContext context(root, report, policy, text);
    context.Locator = &locator;
    context.Start = start;
    CReader<Source> reader(context, source);
    const auto read = [&] {
        const bool isWhole = reader.ReadRoot(root, static_cast<char*>(object)) && reader.TakeEnd();
        return isWhole && context.Problems == 0;
    };
    if (!policy.Transactional) return read();
    CUndo undo;
    context.Undo = &undo;
    try {
        const bool isGood = read();
        if (!isGood) undo.Run();
        return isGood;
    } catch (...) {
        undo.Run();
        throw;
    }
}

} // namespace vexa::interchange

#endif
