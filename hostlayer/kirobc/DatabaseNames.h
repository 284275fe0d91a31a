// The names of groups and users; the rules are those of CheckGroupName and CheckUserName (entry/host/kirobc.h).
#pragma once

#include <string_view>

namespace kirobc {

bool IsGroupName(std::string_view sjis);
bool IsUserName(std::string_view sjis);

}  // namespace kirobc
