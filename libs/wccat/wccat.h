#ifndef WCCAT_H
#define WCCAT_H

/*
 * libWCCat: the defect catalogue of the WinCan survey mode, read from one XML
 * file per coding specification (see README.md for the file format).
 *
 * Records are fixed structures owned by the library. Calls hand out pointers to
 * them and arrays of such pointers; they stay valid until the catalogue is
 * closed and are never freed by the caller. Strings are zero-terminated wchar_t
 * arrays of the sizes below; longer texts in a file are cut to fit.
 *
 * Results at or above 0 are handles or counts; negative results are errors.
 */

#include <wchar.h>

#if defined(WCCAT_BUILDING)
#define WCCAT_API __attribute__((visibility("default")))
#else
#define WCCAT_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

#define WCC_OK 0
#define WCC_ERR_ARGUMENT (-1)      /* a null or empty argument */
#define WCC_ERR_FILE (-2)          /* the file cannot be opened or read */
#define WCC_ERR_FORMAT (-3)        /* the file is not a well-formed catalogue */
#define WCC_ERR_NOT_OPEN (-4)      /* the handle names no open catalogue */
#define WCC_ERR_TOO_MANY (-5)      /* every handle is in use */
#define WCC_ERR_ENCODING (-6)      /* an encoding other than UTF8 was asked for */
#define WCC_ERR_NOT_FOUND (-7)     /* no record with that code or reference */

typedef struct WCCatVersion_t {
    wchar_t UniqueId[38];
    wchar_t Date[11];
    wchar_t Version[21];
    wchar_t Type[51];
    wchar_t Creator[201];
    wchar_t Memo[256];
} WCCatVersion_t;

typedef struct WCCatCatalog_t {
    wchar_t UniqueId[38];
    int Ordinal;
    wchar_t Country[11];
    wchar_t Language[11];
    wchar_t ObjectType[11];
    wchar_t BaseType[51];
    wchar_t CustomType[51];
    wchar_t Version[21];
    wchar_t Created[11];
    wchar_t Description[201];
    wchar_t Publisher[201];
    wchar_t Copyright[256];
    int IsCustom;
    int IsInstalled;
    int AllowEdit;
    int StyleFlags;
    int HasProfiles;
    int HasLists;
    int HasClasses;
    int HasCodes;
    int HasChars;
    int HasParams;
    int HasColumns;
    int HasCLXs;
    int HasCodeTypes;
    int HasDataArray;
    int HasRatings;
    int HasParamTypes;
    int HasColTypes;
} WCCatCatalog_t;

typedef struct WCCatCodeClass_t {
    wchar_t UniqueId[38];
    int Level;
    wchar_t Item[256];
    wchar_t Remarks[256];
    wchar_t ChildCaption[256];
    int IsVirtual;
    wchar_t TranslationId[51];
    wchar_t IconId[51];
    int SortOrder;
    int NumOfBaseCode;
} WCCatCodeClass_t;

typedef struct WCCatBaseCode_t {
    wchar_t UniqueId[38];
    wchar_t ClassRef[38];
    int Ordinal;
    int Level;
    int TypeFlags;
    int Construction;
    wchar_t Item[256];
    wchar_t Remarks[256];
    wchar_t Code[11];
    wchar_t AltCode[11];
    wchar_t Follower[51];
    wchar_t ObsText[256];
    wchar_t ChildCaption[256];
    wchar_t CloseCode[101];
    wchar_t TranslationId[51];
    int AutoPicture;
    int IsVirtual;
    int SortOrder;
    int NumOfCharExt;
    int NumOfParams;
} WCCatBaseCode_t;

typedef struct WCCatCharExt_t {
    wchar_t UniqueId[38];
    wchar_t BaseCodeRef[38];
    wchar_t CharExtRef[38];
    int Ordinal;
    int Level;
    int TypeFlags;
    int Construction;
    wchar_t Item[256];
    wchar_t Remarks[256];
    wchar_t Code[11];
    wchar_t AltCode[11];
    wchar_t Follower[51];
    wchar_t ObsText[256];
    wchar_t ChildCaption[256];
    wchar_t CloseCode[101];
    wchar_t TranslationId[51];
    int AutoPicture;
    int SortOrder;
    int NumOfCharExt;
    int NumOfParams;
} WCCatCharExt_t;

typedef struct WCCatParameter_t {
    wchar_t UniqueId[38];
    wchar_t BaseCodeRef[38];
    wchar_t CharExtRef[38];
    wchar_t ParamRef[38];
    wchar_t ParamId[51];
    wchar_t DataType[11];
    wchar_t Placeholder[11];
    wchar_t Caption[101];
    wchar_t Prefix[51];
    wchar_t Suffix[51];
    wchar_t Unit[51];
    double Internal;
    int TypeFlags;
    int Mandatory;
    int TextLength;
    double RangeFrom;
    double RangeTo;
    double Steps;
    int Precision;
    wchar_t Default[51];
    wchar_t InputFmt[51];
    wchar_t DisplayFmt[51];
    int ClockType;
    wchar_t ColumnId[51];
    wchar_t ListClassId[51];
    wchar_t ToolTip[1];
    int SortOrder;
} WCCatParameter_t;

/* The names the console uses for the same records. */
typedef WCCatCodeClass_t WCCatCodeClass;
typedef WCCatBaseCode_t WCCatBaseCode;
typedef WCCatCharExt_t WCCatCharExt;
typedef WCCatParameter_t WCCatParam;

/* The version of this interface and the library behind it; a static string. */
WCCAT_API const wchar_t *WCC_GetInterfaceVersion(void);

/* Opens a catalogue file. readOnly and mask are accepted for compatibility;
 * encoding must be L"UTF8" (or null). Returns a handle >= 0. */
WCCAT_API int WCC_OpenCatalogEx(const wchar_t *path, int readOnly, const wchar_t *encoding, int mask);
WCCAT_API int WCC_CloseCatalog(int handle, int discard);

WCCAT_API int WCC_GetVersionInfo(int handle, WCCatVersion_t **version);
WCCAT_API int WCC_GetCatalogInfo(int handle, WCCatCatalog_t **info);

/* Arrays in file order, virtual records included. */
WCCAT_API int WCC_GetCodeClasses(int handle, WCCatCodeClass_t ***classes);
WCCAT_API int WCC_GetBaseCodesByClass(int handle, const WCCatCodeClass_t *codeClass, WCCatBaseCode_t ***baseCodes);
WCCAT_API int WCC_GetCharExtsByBaseCode(int handle, const WCCatBaseCode_t *baseCode, WCCatCharExt_t ***charExts);
WCCAT_API int WCC_GetCharExtsByCharExt(int handle, const WCCatCharExt_t *charExt, WCCatCharExt_t ***charExts);
WCCAT_API int WCC_GetAllBaseCodes(int handle, WCCatBaseCode_t ***baseCodes);
WCCAT_API int WCC_GetAllCharExts(int handle, WCCatCharExt_t ***charExts);
/* The parameters of the record with that Code, extensions searched first.
 * Returns their count (0 for a code without parameters), WCC_ERR_NOT_FOUND
 * for an unknown code. */
WCCAT_API int WCC_GetParamsByDefectCode(int handle, const wchar_t *code, WCCatParameter_t ***params);

#ifdef __cplusplus
}
#endif

#endif
