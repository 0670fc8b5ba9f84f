#include "platform/operating_system_win.h"

#include <windows.h>

namespace {

static_assert(sizeof(OSVERSIONINFOA) == 148 && sizeof(OSVERSIONINFOEXA) == 156);

void queryExtended(OperatingSystemFacts& facts) {
    OSVERSIONINFOEXA version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (!GetVersionExA(reinterpret_cast<OSVERSIONINFOA*>(&version))) {
        facts.extendedQueryError = GetLastError();
        return;
    }
    SYSTEM_INFO system{};
    GetNativeSystemInfo(&system);
    facts.extendedMajorVersion = version.dwMajorVersion;
    facts.extendedMinorVersion = version.dwMinorVersion;
    facts.productType = version.wProductType;
    facts.suiteMask = version.wSuiteMask;
    facts.nativeArchitecture = system.wProcessorArchitecture;
    facts.serverR2Metric = GetSystemMetrics(SM_SERVERR2);
}

}  // namespace

OperatingSystemFacts queryOperatingSystem() {
    OperatingSystemFacts facts;
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (!GetVersionExA(&version)) {
        facts.queryError = GetLastError();
        return facts;
    }
    facts.platformId = version.dwPlatformId;
    facts.majorVersion = version.dwMajorVersion;
    facts.minorVersion = version.dwMinorVersion;
    facts.servicePack = version.szCSDVersion;
    if (needsExtendedQuery(facts)) {
        queryExtended(facts);
    }
    return facts;
}

bool isWow64() {
    const HMODULE kernel = GetModuleHandleA("Kernel32.dll");
    // The looked-up address only says that the platform can tell.
    if (kernel == nullptr || GetProcAddress(kernel, "IsWow64Process") == nullptr) {
        return false;
    }
    BOOL wow64 = FALSE;
    return IsWow64Process(GetCurrentProcess(), &wow64) && wow64 == TRUE;
}
