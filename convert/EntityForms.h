// Which kinds of items a version of the drawing format has, and what their pairs look like there.
#pragma once

#include <string_view>

namespace convert {

// The markers of an item's classes, each with the codes that follow it. An item of a drawing without markers gets them
// by this; one that has markers keeps its own.
struct SubclassForm {
    const char* marker;  // null: no more
    const char* codes;   // ",40,50,"; null: all that the others do not have
};

struct EntityForm {
    std::string_view type;
    int firstVersion;  // as DxfOutParamBlock counts
    SubclassForm subclasses[3];
};

// Null when no version that is written has it without objects that only a whole drawing has, or classes of its own.
const EntityForm* FormOf(std::string_view type);

// The markers of the kinds whose classes go by their flags (code 70; of an INSERT: 1 when it is an array).
void SubclassesByFlags(std::string_view type, int flags, SubclassForm (&subclasses)[3]);

// To which of the classes the code belongs; -1: none.
int SubclassOf(const SubclassForm (&subclasses)[3], int code);

// The first version that has a pair with that code in an item of that type.
int FirstVersionOf(std::string_view type, int code);

}  // namespace convert
