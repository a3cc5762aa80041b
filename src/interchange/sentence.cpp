#include <vexa/report.h>

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

/// What is wrong, where the sentence goes on with what was expected and found.
const char* Complaint(ProblemCode code)
{
    switch (code) {
    case ProblemCode::NONE: return "no problem";
    case ProblemCode::SYNTAX: return "";
    case ProblemCode::UNEXPECTED_END: return "the text ends too early";
    case ProblemCode::TEXT_AFTER_VALUE: return "something follows the value";
    case ProblemCode::BAD_NUMBER: return "this is not how a number is written";
    case ProblemCode::BAD_ESCAPE: return "there is no such escape";
    case ProblemCode::LONE_SURROGATE: return "half of a surrogate pair";
    case ProblemCode::CONTROL_CHARACTER: return "a control character must be escaped";
    case ProblemCode::BAD_UTF8: return "this is not UTF-8";
    case ProblemCode::TOO_DEEP: return "nested too deeply";
    case ProblemCode::TOO_LONG: return "longer than allowed";
    case ProblemCode::INPUT_FAILED: return "the input has failed";
    case ProblemCode::WRONG_KIND: return "";
    case ProblemCode::OUT_OF_RANGE: return "the number does not fit";
    case ProblemCode::NOT_AN_INTEGER: return "the number is not an integer";
    case ProblemCode::BAD_TEXT: return "the text is not of the right form";
    case ProblemCode::UNKNOWN_KEY: return "there is no such attribute";
    case ProblemCode::DUPLICATE_KEY: return "the key is given twice";
    case ProblemCode::MISSING_KEY: return "a required attribute is missing";
    case ProblemCode::UNKNOWN_NAME: return "the name is not known";
    case ProblemCode::BELOW_RANGE:
    case ProblemCode::ABOVE_RANGE: return "the value is out of range";
    case ProblemCode::TOO_SHORT: return "shorter than allowed";
    case ProblemCode::TOO_MANY: return "longer than allowed";
    case ProblemCode::NULL_NOT_ALLOWED: return "null is not allowed here";
    case ProblemCode::READ_ONLY: return "this is not read";
    case ProblemCode::CANNOT_BE_MADE: return "no value can be made here";
    case ProblemCode::INACTIVE_MEMBER: return "this is not the active member of its union";
    case ProblemCode::UNKNOWN_TAG: return "the tag is not known";
    case ProblemCode::MISSING_TAG: return "the tag is missing";
    case ProblemCode::NO_ALTERNATIVE: return "the value fits no alternative";
    case ProblemCode::MANY_ALTERNATIVES: return "the value fits more than one alternative";
    case ProblemCode::CHECK_FAILED: return "the check has failed";
    case ProblemCode::TOO_MANY_ELEMENTS: return "there are too many elements";
    case ProblemCode::TOO_FEW_ELEMENTS: return "there are too few elements";
    case ProblemCode::CANNOT_BE_WRITTEN: return "the value cannot be written";
    case ProblemCode::CONVERTER_FAILED: return "the converter has failed";
    case ProblemCode::MORE_PROBLEMS: return "more problems";
    }
    return "a problem";
}

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
