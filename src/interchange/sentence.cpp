#include "interchange/sentence.h"

#include <algorithm>
#include <iterator>

#include "interchange/visible.h"

namespace vexa {

namespace {

/// What a sentence shows of one text.
constexpr std::size_t SHOWN_BYTES = 200;

void AppendShown(std::string& out, std::string_view text)
{
    const std::size_t end = text.size() > SHOWN_BYTES ? interchange::CharacterFrom(text, SHOWN_BYTES) : text.size();
    interchange::AppendVisible(out, text.substr(0, end));
    if (end < text.size()) out += "...";
}

struct CKind {
    ProblemCode Code;
    const char* Name;
    const char* Complaint; ///< where the sentence goes on with what was expected and found; may be empty
};

constexpr CKind KINDS[] = {
    {ProblemCode::NONE, "NONE", "no problem"},
    {ProblemCode::SYNTAX, "SYNTAX", ""},
    {ProblemCode::UNEXPECTED_END, "UNEXPECTED_END", "the text ends too early"},
    {ProblemCode::TEXT_AFTER_VALUE, "TEXT_AFTER_VALUE", "something follows the value"},
    {ProblemCode::BAD_NUMBER, "BAD_NUMBER", "this is not how a number is written"},
    {ProblemCode::BAD_ESCAPE, "BAD_ESCAPE", "there is no such escape"},
    {ProblemCode::LONE_SURROGATE, "LONE_SURROGATE", "half of a surrogate pair"},
    {ProblemCode::CONTROL_CHARACTER, "CONTROL_CHARACTER", "a control character must be escaped"},
    {ProblemCode::BAD_UTF8, "BAD_UTF8", "this is not UTF-8"},
    {ProblemCode::TOO_DEEP, "TOO_DEEP", "nested too deeply"},
    {ProblemCode::TOO_LONG, "TOO_LONG", "longer than allowed"},
    {ProblemCode::INPUT_FAILED, "INPUT_FAILED", "the input has failed"},
    {ProblemCode::WRONG_KIND, "WRONG_KIND", ""},
    {ProblemCode::OUT_OF_RANGE, "OUT_OF_RANGE", "the number does not fit"},
    {ProblemCode::NOT_AN_INTEGER, "NOT_AN_INTEGER", "the number is not an integer"},
    {ProblemCode::BAD_TEXT, "BAD_TEXT", "the text is not of the right form"},
    {ProblemCode::UNKNOWN_KEY, "UNKNOWN_KEY", "there is no such attribute"},
    {ProblemCode::DUPLICATE_KEY, "DUPLICATE_KEY", "the key is given twice"},
    {ProblemCode::MISSING_KEY, "MISSING_KEY", "a required attribute is missing"},
    {ProblemCode::UNKNOWN_NAME, "UNKNOWN_NAME", "the name is not known"},
    {ProblemCode::BELOW_RANGE, "BELOW_RANGE", "the value is out of range"},
    {ProblemCode::ABOVE_RANGE, "ABOVE_RANGE", "the value is out of range"},
    {ProblemCode::TOO_SHORT, "TOO_SHORT", "shorter than allowed"},
    {ProblemCode::TOO_MANY, "TOO_MANY", "longer than allowed"},
    {ProblemCode::NULL_NOT_ALLOWED, "NULL_NOT_ALLOWED", "null is not allowed here"},
    {ProblemCode::READ_ONLY, "READ_ONLY", "this is not read"},
    {ProblemCode::CANNOT_BE_MADE, "CANNOT_BE_MADE", "no value can be made here"},
    {ProblemCode::INACTIVE_MEMBER, "INACTIVE_MEMBER", "this is not the active member of its union"},
    {ProblemCode::UNKNOWN_TAG, "UNKNOWN_TAG", "the tag is not known"},
    {ProblemCode::MISSING_TAG, "MISSING_TAG", "the tag is missing"},
    {ProblemCode::NO_ALTERNATIVE, "NO_ALTERNATIVE", "the value fits no alternative"},
    {ProblemCode::MANY_ALTERNATIVES, "MANY_ALTERNATIVES", "the value fits more than one alternative"},
    {ProblemCode::CHECK_FAILED, "CHECK_FAILED", "the check has failed"},
    {ProblemCode::TOO_MANY_ELEMENTS, "TOO_MANY_ELEMENTS", "there are too many elements"},
    {ProblemCode::TOO_FEW_ELEMENTS, "TOO_FEW_ELEMENTS", "there are too few elements"},
    {ProblemCode::CANNOT_BE_WRITTEN, "CANNOT_BE_WRITTEN", "the value cannot be written"},
    {ProblemCode::CONVERTER_FAILED, "CONVERTER_FAILED", "the converter has failed"},
    {ProblemCode::BAD_PATH, "BAD_PATH", "this is not a path"},
    {ProblemCode::NULL_ON_THE_WAY, "NULL_ON_THE_WAY", "this is null"},
    {ProblemCode::NO_ELEMENT, "NO_ELEMENT", "there is no such element"},
    {ProblemCode::NO_ENTRY, "NO_ENTRY", "there is no such entry"},
    {ProblemCode::NO_ADDRESS, "NO_ADDRESS", "this value has no address of its own"},
    {ProblemCode::MANY_VALUES, "MANY_VALUES", "these are many values"},
    {ProblemCode::CANNOT_BE_CHANGED, "CANNOT_BE_CHANGED", "this value cannot be changed"},
    {ProblemCode::CANNOT_BE_REMOVED, "CANNOT_BE_REMOVED", "this element cannot be removed"},
    {ProblemCode::MORE_PROBLEMS, "MORE_PROBLEMS", "more problems"},
};

const CKind& KindOf(ProblemCode code)
{
    static constexpr CKind OTHER{ProblemCode::NONE, "OTHER", "a problem"};
    const CKind* const kind =
        std::find_if(std::begin(KINDS), std::end(KINDS), [code](const CKind& k) { return k.Code == code; });
    return kind != std::end(KINDS) ? *kind : OTHER;
}

const char* Complaint(ProblemCode code) { return KindOf(code).Complaint; }

std::string ShownText(std::string_view text)
{
    std::string shown;
    AppendShown(shown, text);
    return shown;
}

std::string Quoted(const std::string& name) { return '"' + ShownText(name) + '"'; }

/// The complaint where class and attribute are known.
std::string ComplaintAbout(const CProblem& problem)
{
    const std::string name = problem.Class.empty() ? "the class" : ShownText(problem.Class);
    if (problem.Code == ProblemCode::CHECK_FAILED && !problem.Class.empty())
        return "the check of " + name + " has failed";
    if (problem.Attrib.empty()) return Complaint(problem.Code);
    switch (problem.Code) {
    case ProblemCode::UNKNOWN_KEY: return name + " has no attribute " + Quoted(problem.Attrib);
    case ProblemCode::DUPLICATE_KEY: return "the key " + Quoted(problem.Attrib) + " is given twice";
    case ProblemCode::MISSING_KEY: return name + " needs the attribute " + Quoted(problem.Attrib);
    case ProblemCode::READ_ONLY: return Quoted(problem.Attrib) + " of " + name + " is not read";
    case ProblemCode::INACTIVE_MEMBER: return Quoted(problem.Attrib) + " is not the active member of its union";
    case ProblemCode::MISSING_TAG: return "the tag " + Quoted(problem.Attrib) + " is missing";
    default: return Complaint(problem.Code);
    }
}

/// Whether Found is what somebody says, not what was found.
bool IsQuotation(ProblemCode code)
{
    return code == ProblemCode::INPUT_FAILED || code == ProblemCode::CHECK_FAILED ||
           code == ProblemCode::CONVERTER_FAILED;
}

void AppendDetail(std::string& out, const char* joint, const char* word, const std::string& detail)
{
    if (detail.empty()) return;
    if (!out.empty()) out += joint;
    out += word;
    AppendShown(out, detail);
}

} // namespace

const char* interchange::NameOf(ProblemCode code) { return KindOf(code).Name; }

std::string CProblem::Sentence() const
{
    if (Code == ProblemCode::MORE_PROBLEMS)
        return ShownText(Found) + (Found == "1" ? " more problem" : " more problems");
    std::string sentence = ComplaintAbout(*this);
    AppendDetail(sentence, ": ", "expected ", Expected);
    AppendDetail(sentence, Expected.empty() ? ": " : ", ", IsQuotation(Code) ? "" : "found ", Found);
    if (sentence.empty()) sentence = Code == ProblemCode::SYNTAX ? "broken grammar" : "a value of another kind";
    if (!Nearest.empty()) sentence += "; did you mean " + Quoted(Nearest) + "?";
    return sentence;
}

} // namespace vexa
