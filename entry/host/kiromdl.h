// kiromdl: the host's model. The objects are the host's; what is handed out lives as long as the model does.
// Text is EUC.
#pragma once

#include "HostApi.h"

#if defined(KIROMDL_BUILD)
#define KIROMDL_API KIRO_HOST_EXPORT
#else
#define KIROMDL_API KIRO_HOST_IMPORT
#endif

typedef struct HxModel HxModel;
typedef struct HxLineStyle HxLineStyle;
typedef struct HxLineStylePattern HxLineStylePattern;
typedef struct HxDloList HxDloList;
typedef struct HxDlo HxDlo;
typedef struct HxNameList HxNameList;
typedef struct HxModelTitleSet HxModelTitleSet;
typedef struct HxPermItemDb HxPermItemDb;

// ---- Scales ----

// The scale of a picture, 1 to 256; -1: the model's base value. 1.0 for any other number.
KIROMDL_API double Scfval101(int picture);

// ---- The model ----

KIROMDL_API int HxModelIsModified(const HxModel* model);  // not 0: it has changes that were not saved
KIROMDL_API HxPermItemDb* HxModelGetPermItemDb(HxModel* model);
KIROMDL_API HxLineStyle* HxModelGetLineStyle(HxModel* model);  // null: the model has none
KIROMDL_API HxDloList* HxModelGetDloList(HxModel* model);
KIROMDL_API HxNameList* HxModelGetClassNameList(HxModel* model);
KIROMDL_API HxNameList* HxModelGetRevisionNameList(HxModel* model);
KIROMDL_API HxModelTitleSet* HxModelGetModelTitleSet(HxModel* model);
KIROMDL_API double HxModelGetDraftingScale(const HxModel* model);
// The item attributes, as 32-bit words; bits 15 to 24 of the fourth are the current picture. Count of words available.
KIROMDL_API int HxModelGetItemAttributes(const HxModel* model, uint32_t* words, int count);

#if defined(__cplusplus)
// The class of the model itself: what the commands call on GetActiveModel().
struct HxModel {
    HxModel() = delete;
    bool IsModified() const { return HxModelIsModified(this) != 0; }
    HxPermItemDb* GetPermItemDb() { return HxModelGetPermItemDb(this); }
    HxLineStyle* GetLineStyle() { return HxModelGetLineStyle(this); }
    HxDloList* GetDloList() { return HxModelGetDloList(this); }
    HxNameList* GetClassNameList() { return HxModelGetClassNameList(this); }
    HxNameList* GetRevisionNameList() { return HxModelGetRevisionNameList(this); }
    HxModelTitleSet* GetModelTitleSet() { return HxModelGetModelTitleSet(this); }
    double GetDraftingScale() const { return HxModelGetDraftingScale(this); }
};
#endif

// ---- Items ----

KIROMDL_API int HxPermItemDbGetMaxItemCount(void);                              // the largest maximum item count
KIROMDL_API int HxPermItemDbGetItemCount(const HxPermItemDb* db, int picture);  // 1 to 256; 0 for any other number
KIROMDL_API int HxItemMaxSrCount(void);  // HxItem::m_maxSrCount, the largest split count

// ---- Line styles. Patterns 1 to 63, widths 1 to 16. A null style or pattern and another number: nothing, 0. ----

KIRO_CONSTANT(kHxLinePatterns, 63);
KIRO_CONSTANT(kHxLinePitches, 8);
KIRO_CONSTANT(kHxLineWidths, 16);
// The longest name of a pattern and of a name list, in bytes. A longer one is not taken.
KIRO_CONSTANT(kHxLongestName, 512);
KIROMDL_API HxLineStylePattern* HxLineStyleGetPattern(HxLineStyle* style, int number);
KIROMDL_API double HxLineStyleGetLineWidth(const HxLineStyle* style, int number);
KIROMDL_API void HxLineStyleSetLineWidth(HxLineStyle* style, int number, double width);
KIROMDL_API double HxLineStyleGetLineWeightPitch(const HxLineStyle* style);
KIROMDL_API int HxLineStyleIsLineWeightEnabled(const HxLineStyle* style);
KIROMDL_API void HxLineStyleEnableLineWeight(HxLineStyle* style, bool on);
KIROMDL_API int HxLineStyleIsRealLineWeight(const HxLineStyle* style);
KIROMDL_API void HxLineStyleRealLineWeight(HxLineStyle* style, bool on);
KIROMDL_API int HxLineStyleIsScaledLineFont(const HxLineStyle* style);
KIROMDL_API void HxLineStyleEnableScaledLineFont(HxLineStyle* style, bool on);
KIROMDL_API const char* HxLineStylePatternGetName(const HxLineStylePattern* pattern);
KIROMDL_API void HxLineStylePatternSetName(HxLineStylePattern* pattern, const char* name);
KIROMDL_API int HxLineStylePatternGetPitches(const HxLineStylePattern* pattern, double pitches[8]);  // how many
KIROMDL_API void HxLineStylePatternSet(HxLineStylePattern* pattern, int count, const double* pitches);

// ---- Drawing layouts, numbered 1 to 256 ----

KIROMDL_API HxDlo* HxDloListGetDlo(HxDloList* list, int number);  // null: none
KIROMDL_API const char* HxDloGetName(const HxDlo* layout);        // never null; any bytes
KIROMDL_API int HxDloGetDloWindowCount(const HxDlo* layout);
KIROMDL_API int HxDloGetDloWindowPicture(const HxDlo* layout, int index);  // the picture that window shows
typedef struct HxDloFrame {
    int32_t valid;
    int32_t kind;
    double width;
    double height;
    char name[257];  // EUC
} HxDloFrame;
KIROMDL_API int HxDloGetDloFrame(const HxDlo* layout, HxDloFrame* frame);  // 0: none

// ---- Names and titles. Names 1 to 256. ----

KIRO_CONSTANT(kHxListNames, 256);
KIROMDL_API const char* HxNameListGetName(const HxNameList* list, int number);  // null: none
KIROMDL_API void HxNameListSetName(HxNameList* list, int number, const char* name);
KIROMDL_API int HxModelTitleSetGetCount(const HxModelTitleSet* set);
KIROMDL_API const char* HxModelTitleSetGetTitle(const HxModelTitleSet* set, int index);

// ---- Model files: the active model as a file. Paths: internal form. Results: see kirodxf.h ----

// Whether Mdlread1 keeps the numbers that items have in the file; a host may number them anew otherwise. This host
// always keeps them.
KIROMDL_API void HxModelReaderSetIdenticalMap(bool on);
// Reads a model file; the active model is then that one, not modified. After an error it is as it was.
KIROMDL_API int Mdlread1(const char* path);
// Writes the active model, which is then not modified. The file is replaced in one step: after an error, and when the
// program is stopped, the old file is there, whole, or none where there was none.
KIROMDL_API int Mdlwrite(const char* path);
// The name of the file of a model, EUC and without a folder: the model's name (EUC) with ".mdl" behind it. The folder
// is that of the key "#MODEL#" (HxFileToFullPath). The length of the whole; 0 when no file can have that name.
KIROMDL_API int mdlfname(const char* name, char* out, int size);
