#ifndef VEXA_INTERCHANGE_WRITE_DEFAULT_H
#define VEXA_INTERCHANGE_WRITE_DEFAULT_H

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "interchange/form.h"

namespace vexa::interchange {

/// Tells which attributes are as a new object of their class has them: those with the same compact JSON. What JSON has
/// no form for is like nothing. The new object is made once for each class; a class that cannot be made has no
/// defaults.
class CDefaults {
public:
    CDefaults() = default;
    ~CDefaults();
    CDefaults(const CDefaults&) = delete;
    CDefaults& operator=(const CDefaults&) = delete;

    bool IsDefault(const CClassForm& form, const CMember& member, const void* object);

private:
    struct CNewObject {
        void* Object = nullptr;
        std::vector<std::optional<std::string>> Texts; ///< by member; empty for what JSON has no form for
    };

    CNewObject& Of(const CClassForm& form);

    std::map<const CClassInfor*, CNewObject> m_objects;
};

/// The compact JSON of a value, complete: whatever a policy would leave out; with bytes that are no UTF-8, and raw
/// JSON, as they are, so that different values have different texts. \return false where some of it has no form in
/// JSON. Defined with the compact writer.
bool CompactText(std::string& out, const CForm& form, const void* holder);

} // namespace vexa::interchange

#endif
