// One drawing after the other: what the program does.
#pragma once

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "convert/Convert.h"

namespace kiroconvert {

constexpr int kFine = 0;
constexpr int kFindings = 1;  // something is not covered
constexpr int kTrouble = 2;   // wrong words, or a file that cannot be read or written

// The text is for the user.
class Failure : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Settings {
    convert::ImportSettings import;
    convert::ExportSettings output;
    std::unique_ptr<DxfInLayerTable> inLayers;
    std::unique_ptr<DxfInLineTable> inLines;
    std::unique_ptr<DxfOutLayerTable> outLayers;
    std::unique_ptr<DxfOutLineTable> outLines;
};

Settings DefaultSettings();
void ReadTables(const std::string& folder, Settings& settings);    // throws Failure
void ReadParameters(const std::string& file, Settings& settings);  // throws Failure
int VersionOf(const std::string& name);                            // 0: there is none of that name
std::filesystem::path PathOf(const std::string& name);
std::string NameOf(const std::filesystem::path& path);

struct Job {
    std::string input, output;
};
// The names may have wildcards in their last part; output: a file, or the folder for all. Throws Failure.
std::vector<Job> PlanJobs(const std::vector<std::string>& inputs, const std::string& output);

struct Outcome {
    Job job;
    std::string failure;  // "": it is converted
    convert::Summary read, written;
    bool IsComplete() const { return failure.empty() && read.IsComplete() && written.IsComplete(); }
};
Outcome RunJob(const Job& job, const Settings& settings);

void PrintOutcome(const Outcome& outcome);
void PrintJsonOf(const std::vector<Outcome>& outcomes);
int StatusOf(const std::vector<Outcome>& outcomes);

}  // namespace kiroconvert
