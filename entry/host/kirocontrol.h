// kirocontrol: the host's session.
#pragma once

#include "HostApi.h"

#if defined(KIROCONTROL_BUILD)
#define KIROCONTROL_API KIRO_HOST_EXPORT
#else
#define KIROCONTROL_API KIRO_HOST_IMPORT
#endif

typedef struct HxModel HxModel;

// The model that commands work on. Never null while the host runs.
KIROCONTROL_API HxModel* GetActiveModel(void);

// File types by key, such as "#DXF#".
typedef struct HxFileType HxFileType;
KIROCONTROL_API const HxFileType* HxSessionGetFileType(const char* key);  // null for an unknown key
KIROCONTROL_API int HxFileTypeIsUpperCase(const HxFileType* type);        // not 0: its files are named in upper case

// The host's journal of settings.
KIROCONTROL_API void LogoutMDF(int code, int count, int value, bool first, bool last);
KIROCONTROL_API void LogoutSCL(double value, bool first, bool last);
KIROCONTROL_API void Rpt101(int what);
