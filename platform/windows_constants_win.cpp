#include <windows.h>

#include "platform/windows_constants.h"

static_assert(maximumPathLength == MAX_PATH);

static_assert(errorSuccess == ERROR_SUCCESS && errorFileNotFound == ERROR_FILE_NOT_FOUND &&
              errorInvalidData == ERROR_INVALID_DATA && errorMoreData == ERROR_MORE_DATA &&
              errorNoMoreItems == ERROR_NO_MORE_ITEMS);

static_assert(stringType == REG_SZ && expandableStringType == REG_EXPAND_SZ &&
              binaryType == REG_BINARY && numberType == REG_DWORD && textsType == REG_MULTI_SZ);

static_assert(fileAttributeReparsePoint == FILE_ATTRIBUTE_REPARSE_POINT);

static_assert(platformWin32s == VER_PLATFORM_WIN32s &&
              platformWindows == VER_PLATFORM_WIN32_WINDOWS && platformNt == VER_PLATFORM_WIN32_NT);
static_assert(productTypeWorkstation == VER_NT_WORKSTATION &&
              suiteHomeServer == VER_SUITE_WH_SERVER &&
              architectureAmd64 == PROCESSOR_ARCHITECTURE_AMD64);
