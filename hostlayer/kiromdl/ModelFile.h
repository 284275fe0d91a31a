// A model as JSON: read from a file, and printed.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "Model.h"

// Says in English where the text is wrong and what is expected there.
class ModelFileError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

Model ReadModelFile(const wchar_t* file);      // throws ModelFileError; also what Mdlwrite has written
Model ReadModelText(const std::string& text);  // throws ModelFileError
std::string PrintModel(const Model& model);    // UTF-8; read again it gives the same model without its drawings

bool IsModelBytes(std::string_view file);     // by its start: what Mdlwrite writes
Model ReadModelBytes(std::string_view file);  // throws ModelFileError
