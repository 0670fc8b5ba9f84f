// Names of products: rows of the catalogue and of the code directory, and those of the viewers.
#pragma once

/// A row of a compiled-in table of texts.
struct TextRow {
    const char* key;
    const char* value;
};

/// The products that this installer can install. Discovery finds older versions by a product's name
/// anywhere in a display name, so no name may occur within another one. None begins with the
/// maker's name, which is put in front of it.
inline constexpr TextRow productNames[] = {
    {"04", "Tavlink Classic Analyzer"},
    {"07", "EtherTavlink"},
    {"0g", "Tavlink Serial Demo"},
    {"0h", "Tavlink Classic Demo"},
    {"0q", "Tavlink Universal Analyzer"},
    {"0u", "Tavlink Ethernet Demo"},
    {"16", "Tavlink Bluetooth Analyzer"},
    {"17", "Tavlink USB Analyzer"},
    {"1b", "Tavlink Industrial Demo"},
    {"1c", "Tavlink Industrial Viewer"},
    {"1d", "Tavlink ZigBee Analyzer"},
    {"1e", "Tavlink Async Suite"},
    {"1h", "Tavlink Sensor Network Analyzer"},
    {"1k", "Tavlink Serial Analyzer"},
    {"1m", "Tavlink Industrial Analyzer"},
    {"1p", "Tavlink SPI Analyzer"},
    {"1q", "Bluetooth Protocol Viewer"},
    {"1r", "Tavlink Low Energy Analyzer"},
    {"1s", "Tavlink Near Field Analyzer"},
    {"1t", "Tavlink USB Demo"},
    {"1u", "Tavlink Corvane Analyzer"},
    {"1v", "Tavlink Wireless LAN Analyzer"},
    {"1w", "Tavlink Multiprotocol Analyzer"},
};

/// Display names under which the two editions of the free viewer are registered.
inline constexpr char testSuiteViewerName[] = "Test Suite Observer";
inline constexpr char protocolViewerName[] = "Bluetooth Protocol Viewer";
static_assert(sizeof(testSuiteViewerName) == 19 + 1 && sizeof(protocolViewerName) == 25 + 1);
