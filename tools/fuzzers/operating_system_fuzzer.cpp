#include <cstring>

#include "app/environment.h"
#include "platform/operating_system.h"
#include "tools/fuzzers/fuzz_input.h"

namespace {

template <class Number>
void take(Number& number, const std::uint8_t*& data, std::size_t& size) {
    const std::size_t taken = size < sizeof number ? size : sizeof number;
    std::memcpy(&number, data, taken);
    data += taken;
    size -= taken;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    OperatingSystemFacts facts;
    std::uint8_t flags = 0, bufferSize = 0;
    take(flags, data, size);
    take(bufferSize, data, size);
    std::uint32_t queryError = 0, extendedQueryError = 0;
    for (std::uint32_t* number :
         {&queryError, &facts.platformId, &facts.majorVersion, &facts.minorVersion,
          &extendedQueryError, &facts.extendedMajorVersion, &facts.extendedMinorVersion}) {
        std::uint8_t small = 0;
        take(small, data, size);
        *number = small == 255 ? 0xFFFFFFFF : small;
    }
    if ((flags & 1) != 0) {
        facts.queryError = queryError;
    }
    if ((flags & 2) != 0) {
        facts.extendedQueryError = extendedQueryError;
    }
    take(facts.productType, data, size);
    take(facts.suiteMask, data, size);
    take(facts.nativeArchitecture, data, size);
    take(facts.serverR2Metric, data, size);
    facts.servicePack = asText(data, size);

    const OperatingSystemIdentity identity = identifyOperatingSystem(facts);
    require(identity.code >= -1 && identity.code <= operating_system_code::unknownNewer);
    char buffer[256];
    std::memset(buffer, 'x', sizeof buffer);
    const int code = deliverOperatingSystemName(identity, buffer, bufferSize);
    require(code == identity.code || code == operating_system_code::nameTooLong ||
            code == operating_system_code::noBuffer);
    require(bufferSize == 0 || code < 0 || std::memchr(buffer, 0, bufferSize) != nullptr);
    for (std::size_t index = bufferSize; index < sizeof buffer; ++index) {
        require(buffer[index] == 'x');
    }
    return 0;
}
