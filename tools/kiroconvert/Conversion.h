// One drawing after the other: what the program does.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "convert/Convert.h"
#include "tools/cli/Status.h"

namespace kiroconvert {

using cli::kFindings;  // something is not covered
using cli::kFine;
using cli::kTrouble;

struct Settings {
    convert::ImportSettings import;
    convert::ExportSettings output;
    std::unique_ptr<DxfInLayerTable> inLayers;
    std::unique_ptr<DxfInLineTable> inLines;
    std::unique_ptr<DxfOutLayerTable> outLayers;
    std::unique_ptr<DxfOutLineTable> outLines;
};

Settings DefaultSettings();
void ReadTables(const std::string& folder, Settings& settings);    // throws cli::Failure
void ReadParameters(const std::string& file, Settings& settings);  // throws cli::Failure
int VersionOf(const std::string& name);                            // 0: there is none of that name

struct Job {
    std::string input, output;
};
// The names may have wildcards in their last part; output: a file, or the folder for all. Throws cli::Failure.
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
