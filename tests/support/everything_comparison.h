#ifndef VEXA_TESTS_SUPPORT_EVERYTHING_COMPARISON_H
#define VEXA_TESTS_SUPPORT_EVERYTHING_COMPARISON_H

#include <string>

namespace vexa_test::everything {

/// Where the first difference lies.
class Comparison {
public:
    /// Whether numbers need only be worth the same, as in formats that do not keep their digits.
    enum class Digits { KEPT, WORTH_THE_SAME };

    explicit Comparison(Digits digits = Digits::KEPT) : m_digits(digits) {}
    bool KeepsDigits() const { return m_digits == Digits::KEPT; }
    bool Fail(const std::string& what)
    {
        if (m_difference.empty()) m_difference = m_path + ": " + what;
        return false;
    }
    bool Expect(bool isSame, const std::string& what = "another value") { return isSame || Fail(what); }
    template<class F>
    bool Inside(const std::string& step, F f)
    {
        const std::size_t length = m_path.size();
        m_path += '/' + step;
        const bool isSame = f();
        m_path.resize(length);
        return isSame;
    }
    const std::string& Difference() const { return m_difference; }

private:
    Digits m_digits;
    std::string m_path;
    std::string m_difference;
};

} // namespace vexa_test::everything

#endif
