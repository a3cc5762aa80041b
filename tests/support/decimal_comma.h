#ifndef VEXA_TESTS_SUPPORT_DECIMAL_COMMA_H
#define VEXA_TESTS_SUPPORT_DECIMAL_COMMA_H

#include <clocale>
#include <iostream>
#include <locale>
#include <string>

namespace vexa_test {

/// Puts C++'s global locale and std::cout, for the length of a scope, into one that writes 1234.5 as 1.234,5.
class DecimalComma {
public:
    DecimalComma()
        : m_previous(std::locale::global(std::locale(std::locale::classic(), new Comma))),
          m_previousOfOutput(std::cout.imbue(std::locale()))
    {
    }

    ~DecimalComma()
    {
        std::cout.imbue(m_previousOfOutput);
        std::locale::global(m_previous);
    }

    DecimalComma(const DecimalComma&) = delete;
    DecimalComma& operator=(const DecimalComma&) = delete;

private:
    class Comma : public std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

    std::locale m_previous;
    std::locale m_previousOfOutput;
};

/// Puts the C library into a locale with a decimal comma for the length of a scope, if the machine has one.
class CDecimalComma {
public:
    CDecimalComma()
        : m_previous(std::setlocale(LC_ALL, nullptr)), m_found(std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr)
    {
    }

    ~CDecimalComma() { std::setlocale(LC_ALL, m_previous.c_str()); }

    CDecimalComma(const CDecimalComma&) = delete;
    CDecimalComma& operator=(const CDecimalComma&) = delete;

    bool Found() const { return m_found; }

private:
    std::string m_previous;
    bool m_found;
};

} // namespace vexa_test

#endif
