// What a batch has the host do: one drawing after the other becomes a model and its file, while the user's own model is
// kept aside; and the list of what came of it, beside the models.
#pragma once

#include <windows.h>

#include <string>

#include "entry/host/KrUtility.h"
#include "entry/host/ParamBlocks.h"

// The host's words for an error code of its conversions, Shift-JIS.
std::string HostErrorText(int code);

// While one lives, the active model is another one.
class ModelAside {
  public:
    ModelAside();
    ModelAside(const ModelAside&) = delete;
    ModelAside& operator=(const ModelAside&) = delete;
    ~ModelAside();

    int Error() const { return error_; }  // 0: the model is aside

  private:
    int error_;
};

// Converts a drawing by the parameters and the table that were set, into a new model, and writes that. Paths: internal
// form. "" when it is done; otherwise why not, and the model's file is as before.
std::string ConvertDrawing(const std::string& drawing, const std::string& model);

// "DXF_Batch.lis" in the folder of the models: made anew by each run, a line as soon as a drawing is done.
class BatchListing {
  public:
    BatchListing(KrUtility& utility, const std::string& title, const std::string& pattern, const std::string& table);
    BatchListing(const BatchListing&) = delete;
    BatchListing& operator=(const BatchListing&) = delete;
    ~BatchListing();

    void Add(const std::string& line);
    bool IsWhole() const { return whole_; }  // everything could be written
    static constexpr char kName[] = "DXF_Batch.lis";

  private:
    HANDLE file_ = INVALID_HANDLE_VALUE;
    bool whole_ = false;
};
