#ifndef VEXA_TESTS_DESCRIPTION_SHARED_DESCRIPTION_H
#define VEXA_TESTS_DESCRIPTION_SHARED_DESCRIPTION_H

#include <string>
#include <vector>

#include <vexa/describe.h>

/// One description, which two files of this program include.

namespace shared_description {

struct Part {
    int p = 1;
};
class Whole {
public:
    Part part;
    std::vector<Part> parts;

private:
    std::string secret = "s";
    VEXA_FRIEND(Whole);
};

VEXA_DESCRIBE(Part, p)
VEXA_DESCRIBE_CLASS(Whole)
{
    about.Attrib("part", &Whole::part);
    about.Attrib("parts", &Whole::parts);
    about.Attrib("secret", &Whole::secret).Private();
}

/// What the other file sees.
struct SeenElsewhere {
    const vexa::CClassInfor* Class;
    const vexa::CGnlTypeInfor* Type;
    std::string Text;
};
SeenElsewhere SeeElsewhere();

} // namespace shared_description

#endif
