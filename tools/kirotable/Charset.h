// Files of tables that another program saved in Unicode.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kirotable {

enum class Charset { kCp932, kUtf8, kUtf16 };

// What a file is in all likelihood. Code page 932 has no mark of its own: it is what no other one fits.
Charset CharsetOf(std::string_view bytes);
std::string_view NameOfCharset(Charset charset);  // as the option has it

struct Decoded {
    std::string text;                // code page 932
    std::vector<std::size_t> lines;  // from 1 on, in which a character has no place there and became "〓"
};

// Throws cli::Failure when the bytes are none of that character set.
Decoded Decode(std::string bytes, Charset from);

}  // namespace kirotable
