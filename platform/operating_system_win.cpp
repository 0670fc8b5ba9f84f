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

int operatingSystemCode() {
    return identifyOperatingSystem(queryOperatingSystem()).code;
}

int operatingSystemName(std::uint32_t& platformId, char* buffer, std::size_t size, bool wantName) {
    platformId = 0;
    if (wantName && (buffer == nullptr || size == 0)) {
        return operating_system_code::noBuffer;
    }
    const OperatingSystemFacts facts = queryOperatingSystem();
    platformId = facts.platformId;
    const OperatingSystemIdentity identity = identifyOperatingSystem(facts);
    return wantName ? deliverOperatingSystemName(identity, buffer, size) : identity.code;
}

int operatingSystemName(char* buffer, std::size_t size) {
    std::uint32_t platformId = 0;
    return operatingSystemName(platformId, buffer, size, true);
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
