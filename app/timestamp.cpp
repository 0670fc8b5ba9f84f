#include "app/timestamp.h"

#include "platform/format_text.h"

void FormatTimestamp(const SystemTime& time, std::string& text, bool readable, char lead) {
    constexpr std::size_t maximumLength = 32;
    text = readable ? formatText("%4d-%02d-%02d %02d:%02d:%02d", time.year, time.month, time.day,
                                 time.hour, time.minute, time.second)
                    : formatText("%c%4d%02d%02d%02d%02d%02d", lead, time.year, time.month, time.day,
                                 time.hour, time.minute, time.second);
    if (text.size() > maximumLength) {
        text.resize(maximumLength);
    }
}
