#ifndef VEXA_DETAIL_INTERCHANGE_H
#define VEXA_DETAIL_INTERCHANGE_H

#include <functional>
#include <string>
#include <string_view>

#include <vexa/event.h>
#include <vexa/policy.h>
#include <vexa/refrence.h>
#include <vexa/report.h>

/// \file
/// The compiled half of vexa/interchange.h: of any described object by reference. \p names are those of the object's
/// values where it is itself an enumeration, which a reference does not tell from its integer.

namespace vexa {

namespace detail {

struct CEnumerationSlot;

} // namespace detail

/// Reads one JSON value into an object that exists: what the text does not name stays as it is, what it names is
/// replaced whole. Problems of meaning do not end the reading. After a problem the object is valid and holds what could
/// be read, or with CReadPolicy::Transactional what it held before. \p text must not be part of the object.
/// \return whether there was no problem. What converters, checks and \p input throw is a problem; std::bad_alloc, and
/// what constructors, comparisons and descriptions throw, comes out, with the object as after a problem.
VEXA_API bool ReadJson(const CRefrence& target, std::string_view text, CReport& report, const CReadPolicy& policy = {},
                       const detail::CEnumerationSlot* names = nullptr);
VEXA_API bool ReadJson(const CRefrence& target, const InputFunction& input, CReport& report,
                       const CReadPolicy& policy = {}, const detail::CEnumerationSlot* names = nullptr);
/// The same from any format.
VEXA_API bool ReadEvents(const CRefrence& target, CEventSource& source, CReport& report, const CReadPolicy& policy = {},
                         const detail::CEnumerationSlot* names = nullptr);

/// Writes an object as one JSON value, in place of what \p out holds, which must not be part of the object. What has no
/// form is `null` and a problem. Floating values have the shortest digits that read back equal, with `.0` where they
/// would be taken for integers. What converters throw is a problem. \return whether there was no problem. Throws
/// std::bad_alloc; \p out is then empty.
VEXA_API bool WriteJson(std::string& out, const CConstRefrence& ref, const CWritePolicy& policy = {},
                        CReport* report = nullptr, const detail::CEnumerationSlot* names = nullptr);
/// The same in pieces of 16 KiB at most. Where \p out gives false, nothing more is written, and the result is false;
/// what it throws comes through.
VEXA_API bool WriteJson(const OutputFunction& out, const CConstRefrence& ref, const CWritePolicy& policy = {},
                        CReport* report = nullptr, const detail::CEnumerationSlot* names = nullptr);
/// The same in any format. The sink is told the sizes of containers, and of objects of which every attribute is
/// written; other sizes are unknown. NaN and the infinities come as Floating() where the policy allows them.
VEXA_API bool WriteEvents(CEventSink& sink, const CConstRefrence& ref, const CWritePolicy& policy = {},
                          CReport* report = nullptr, const detail::CEnumerationSlot* names = nullptr);

/// The problems as a JSON array of objects, for programs.
VEXA_API std::string WriteJson(const CReport& report, const CWritePolicy& policy = {});

/// Reads texts of one JSON value a line (empty lines are passed over): each is read into \p object, which is emptied to
/// a default one before by \p reset, and handed to \p take, which ends the reading with false. Problems have the lines
/// of the whole text; a line with a problem of grammar is passed over, one with any problem is not handed over. What
/// \p reset and \p take throw comes out.
VEXA_API bool ReadJsonLines(const CRefrence& object, const InputFunction& input, const std::function<void()>& reset,
                            const std::function<bool()>& take, CReport& report, const CReadPolicy& policy = {});

} // namespace vexa

#endif
