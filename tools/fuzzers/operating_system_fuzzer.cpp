#include <fuzzer/FuzzedDataProvider.h>

#include "platform/operating_system.h"
#include "tools/fuzzers/fuzz_input.h"

void fuzz(std::string_view bytes) {
    FuzzedDataProvider input(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    // Most are small; the largest stands for all that are not.
    const auto number = [&input] {
        const auto small = input.ConsumeIntegral<std::uint8_t>();
        return small == 255 ? 0xFFFFFFFF : small;
    };
    OperatingSystemFacts facts;
    if (input.ConsumeBool()) {
        facts.queryError = number();
    }
    if (input.ConsumeBool()) {
        facts.extendedQueryError = number();
    }
    for (std::uint32_t* version : {&facts.platformId, &facts.majorVersion, &facts.minorVersion,
                                   &facts.extendedMajorVersion, &facts.extendedMinorVersion}) {
        *version = number();
    }
    facts.productType = input.ConsumeIntegral<std::uint8_t>();
    facts.suiteMask = input.ConsumeIntegral<std::uint16_t>();
    facts.nativeArchitecture = input.ConsumeIntegral<std::uint16_t>();
    facts.serverR2Metric = input.ConsumeIntegral<int>();
    const auto bufferSize = input.ConsumeIntegral<std::uint8_t>();
    facts.servicePack = input.ConsumeRemainingBytesAsString();

    const OperatingSystemIdentity identity = identifyOperatingSystem(facts);
    require(identity.code >= -1 && identity.code <= operating_system_code::unknownNewer);
    std::string buffer(256, 'x');
    const int code = deliverOperatingSystemName(identity, buffer.data(), bufferSize);
    require(code == identity.code || code == operating_system_code::nameTooLong ||
            code == operating_system_code::noBuffer);
    require(bufferSize == 0 || code < 0 || buffer.find('\0') < bufferSize);
    require(buffer.find_first_not_of('x', bufferSize) == std::string::npos);
}
