#include "catalogue/product_catalogue.h"

#include <span>
#include <utility>

#include "catalogue/build_number.h"
#include "catalogue/product_names.h"
#include "catalogue/product_traits.h"
#include "platform/ansi_text.h"
#include "platform/version_number.h"

namespace {

constexpr TextRow decoderDescriptions[] = {
    {"**", "No Restriction"},
    {"3*", "TDP-3* (DNP3 Family)"},
    {"3e", "TDP-3e (DNP3 Ethernet)"},
    {"3s", "TDP-3s (DNP3 Serial)"},
    {"ae", "TDP-ae (Automation Ethernet)"},
    {"be", "TDP-be (BACnet Ethernet)"},
    {"bm", "TDP-bm (BACnet MS/TP)"},
    {"bp", "TDP-bp (BACnet PTP)"},
    {"bs", "TDP-bs (Bus Serial)"},
    {"bt", "Bluetooth Decoders - bt"},
    {"b5", "Bluetooth Extended Decoders - b5"},
    {"b*", "TDP-b* (BACnet Family)"},
    {"cb", "TDP-cb (Control Bus)"},
    {"cf", "Custom Frame Decoders - cf"},
    {"cl", "TDP-cl (Control Link)"},
    {"cp", "TDP-cp (Control Protocol)"},
    {"cs", "Coexistence Decoders - cs"},
    {"d1", "TDP-d1 (Data Link 1)"},
    {"d4", "TDP-d4 (DH485)"},
    {"DD", "Decoder Developer's Kit - DD"},
    {"dn", "TDP-dn (DeviceNet)"},
    {"dp", "TDP-dp (DH+)"},
    {"eb", "Sensor Network Decoders - eb"},
    {"ei", "TDP-ei (Ethernet Industrial)"},
    {"ep", "TDP-ep (Ethernet Process)"},
    {"fa", "TDP-fa (Field Automation)"},
    {"fd", "Frame Display Decoders - fd"},
    {"gs", "TDP-gs (Generic Serial)"},
    {"i*", "TDP-i* (IEC 870-5 Family)"},
    {"ip", "TDP-ip (Industrial IP)"},
    {"i1", "TDP-i1 (IEC 870-5-101)"},
    {"i3", "TDP-i3 (IEC 870-5-103)"},
    {"i4", "TDP-i4 (IEC 870-5-104)"},
    {"ia", "TDP-ia (Industrial Automation Family)"},
    {"ie", "TDP-ie (Industrial Ethernet)"},
    {"ma", "TDP-ma (Modbus ASCII)"},
    {"mr", "TDP-mr (Modbus RTU)"},
    {"mt", "TDP-mt (Modbus TCP)"},
    {"og", "TDP-og (Oil and Gas)"},
    {"ra", "TDP-ra (Remote Access)"},
    {"rc", "TDP-rc (Remote Control)"},
    {"re", "TDP-re (Remote Ethernet)"},
    {"rp", "TDP-rp (Remote Point)"},
    {"r*", "TDP-r* (Remote Family)"},
    {"tn", "TDP-tn (Terminal Network)"},
    {"zt", "ZigBee Test Decoders - zt"},
    {"z*", "ZigBee Family Decoders - z*"},
    {"zb", "ZigBee Decoders - zb"},
    {"zp", "ZigBee Pro Decoders - zp"},
    {"aa", "Async Decoders - aa"},
    {"ca", "CAN Decoders - ca"},
    {"ea", "Ethernet Decoders - ea"},
    {"ha", "HDLC Decoders - ha"},
};

constexpr TextRow demoOf[] = {
    {"04", "0h"}, {"07", "0u"}, {"17", "1t"}, {"1k", "0g"}, {"1m", "1b"},
};

constexpr const char* viewerProducts[] = {
    "04", "07", "16", "17", "1c", "1d", "1h", "1k", "1m", "1p", "1r", "1s", "1u", "1v", "1w",
};

constexpr TextRow decoderCategories[] = {
    {"3*;3e;3s;ae;be;bm;bp;bs;b*;cb;cl;cp;d1;d4;dn;dp;ei;ep;fa;gs;i*;ip;i1;i3;i4;ia;ie;ma;mr;mt;og;"
     "ra;rc;re;rp;r*;tn",
     "Vostrel"},
    {"bc;bt;b5;cs;eb;sb;zt;z*;zb;zp", "Wireless"},
    {"cf;DD;fd", "Other"},
    {"su", "Vostrel;Wireless"},
};

constexpr TextRow productGroups[] = {
    {"Async", "01;1k;02;0d;0p;1e"},
    {"Async Demo", "0g;0s"},
    {"IA", "0y;1m;0w;15;1a;1b;1c"},
    {"Bluetooth", "0v;16;19"},
};

// Kept: the relation is not symmetric; "1u" names "1t", but "16" does not.
constexpr TextRow relatedProducts[] = {
    {"1k;0g", "Async;Async Demo"},
    {"04;0h", "04;0h"},
    {"07;0u", "07;0u"},
    {"0n", "0n"},
    {"0q;14", "**"},
    {"1m;1b;1c", "IA"},
    {"1n;10;11;1f", "0g;0z;10;11;1f;1n"},
    {"13;1g", "0u;13;1g"},
    {"16", "Bluetooth;17;1q;1r;1u;1v;1w"},
    {"17", "17;1t"},
    {"18", "18;0u"},
    {"19", "Bluetooth"},
    {"1d", "1d"},
    {"1h", "1h"},
    {"1p", "1p"},
    {"1q", "1q"},
    {"1s", "1s"},
    {"1t", "1t"},
    {"1v", "1v"},
    {"1e", "Async;Async Demo;04;0h"},
    {"1r", "1r;1u;1w"},
    {"1u", "Bluetooth;17;1q;1r;1t;1u;1v"},
    {"1w", "Bluetooth;17;1q;1r;1t;1u;1v;1w"},
};

/// Null: the format has no such text.
struct ImportFormat {
    const char* number;
    const char* name;
    const char* medium;  ///< the back-quote is part of it
    const char* shortName;
    const char* filter;
};
constexpr ImportFormat importFormats[] = {
    {"-1", "None", "None", nullptr, nullptr},
    {"0", "BTSnoop file", "Generic`Air", "BTSnoop", "BTSnoop Files (*.log)|*.log|"},
    {"1", "Chief TXT", "Generic`Air", "Chief TXT", "Chief Files (*.txt)|*.txt|"},
    {"2", "DOS EtherTavlink file", "Ethernet", "DOS EtherTavlink",
     "DOS EtherTavlink Files (*.cap)|*.cap|"},
    {"3", "Merlin CSV", "Generic`Air", "Merlin CSV", "Merlin Files (*.csv)|*.csv|"},
    {"4", "DOS Tavlink file", "Async", "DOS Tavlink", "DOS Tavlink Files (*.byt)|*.byt|"},
    {"5", "Sniffer file", "Ethernet", "Sniffer", "Sniffer Files (*.enc)|*.enc|"},
    {"6", "Snoop file", "Ethernet", "Snoop", "Snoop Files (*.cap)|*.cap|"},
    // Kept without a pattern: the analyser supplies it.
    {"7", "ChipCon file", "Generic`Air", "ChipCon", "ChipCon Files"},
    {"8", "Shomiti file", "Ethernet", "Shomiti", "Shomiti Files (*.cap)|*.cap|"},
    {"9", "Ultracore TXT", nullptr, "Ultracore TXT", "Ultracore Files (*.txt)|*.txt|"},
};

// "0_vr" is format 0 with a qualifier, for the reader of the list to take apart.
constexpr TextRow productImportFormats[] = {
    {"1k;02;04;0d;0n;0p;1n;10;11;12;15;1e", "4"},
    {"07;13;18;1a", "2;5;6;8"},
    {"1m", "2;4;5;6;8"},
    {"16;1u", "0_vr;1;3;9"},
    {"1w", "0_vr;1;3;6;9"},
    {"19", "1;3"},
    {"1d", "7"},
    {"0g;0h;0s;0u;1b;1c;1f;1g;1h;1q;1r;1s", "-1"},
};

constexpr TextRow fieldbusTypes[] = {
    {"CAN2A", "0x7f010100;0x7f010102"},
    {"DeviceNet", "0x7f010101"},
    {"DH+", "0x7f00801a"},
    {"DH485", "0x7f00801b"},
};

constexpr TextRow productDecoders[] = {
    {"1m",
     "3*;3e;3s;ae;bs;cb;cl;cp;d1;d4;dn;dp;ei;ep;fa;gs;i*;ip;i1;i3;i4;ia;ie;ma;mr;mt;og;ra;rc;re;rp;"
     "r*;tn;be;bm;bp;b*"},
    {"15", "3s;bs;cb;cl;d1;d4;dn;dp;i*;i1;i3;ma;mr;rc;re;rp;tn;bm;bp"},
    {"1a", "3e;ae;cb;d4;dn;dp;ep;i4;mt;re;be"},
    {"16;19", "bt"},
    {"1b;1c", "ia"},
    {"1d", "z*;zb;zp"},
    {"1h", "eb"},
    {"1u", "b5"},
    {"1w", "cs"},
};

constexpr TextRow displayNameTemplates[] = {
    {"04;07;0g;0h;0u;1b;1c;1m;16;17;19;1d;1e;1h;1k;1p;1r;1s;1t;1u;1v", "<PRODUCT NAME> <BUILD>"},
    // Kept: this product's folders in the field bear the build alone.
    {"1w", "<BUILD>"},
};

constexpr TextRow productConfigurations[] = {
    {"04", "TavlinkClassic"},   {"0h", "TavlinkDemo"},     {"0g;1f", "AsyncDemo"},
    {"0n;1n", "Async"},         {"0u;1g", "EthernetDemo"}, {"13;18", "Ethernet"},
    {"17;1d;1h;1p", "Generic"}, {"07", "EtherTavlink"},
};

/// A key of `rows` is a list of those that have the value.
CProductData::TextMap textMap(std::span<const TextRow> rows) {
    CProductData::TextMap map;
    std::vector<std::string> keys;
    for (const TextRow& row : rows) {
        splitFields(row.key, keys, ';');
        for (const std::string& key : keys) {
            map.emplace(key, row.value);
        }
    }
    return map;
}

void addText(CProductData::TextMap& map, const char* key, const char* value) {
    if (value != nullptr) {
        map.emplace(key, value);
    }
}

}  // namespace

CProductData::CProductData()
    : DecoderDescriptions(textMap(decoderDescriptions)),
      ProductNames(textMap(productNames)),
      DemoOf(textMap(demoOf)),
      ViewerProducts(std::begin(viewerProducts), std::end(viewerProducts)),
      DecoderCategories(textMap(decoderCategories)),
      ProductGroups(textMap(productGroups)),
      RelatedProducts(textMap(relatedProducts)),
      ProductImportFormats(textMap(productImportFormats)),
      FieldbusTypes(textMap(fieldbusTypes)),
      ProductDecoders(textMap(productDecoders)),
      DisplayNameTemplates(textMap(displayNameTemplates)),
      ProductConfigurations(textMap(productConfigurations)) {
    for (const auto& [code, name] : ProductNames) {
        ProductIds.emplace(name, code);
    }
    for (const auto& [code, demonstration] : DemoOf) {
        DemoProducts.emplace(demonstration);
        FullProductOf.emplace(demonstration, code);
    }
    for (const ImportFormat& format : importFormats) {
        addText(ImportFormatNames, format.number, format.name);
        addText(ImportFormatMedia, format.number, format.medium);
        addText(ImportFormatShortNames, format.number, format.shortName);
        addText(ImportFormatFilters, format.number, format.filter);
    }
}

CProductData::~CProductData() = default;

bool CProductData::productName(std::string_view code, std::string& name) {
    name.clear();
    if (code.empty()) {
        lastError = "No product id specified.";
        return false;
    }
    const auto found = ProductNames.find(code);
    if (found == ProductNames.end()) {
        lastError = "No product with id \"" + std::string(code) + "\" is supported.";
        return false;
    }
    name = found->second;
    return true;
}

bool CProductData::hasDemonstrationEdition(std::string_view code) const {
    return DemoOf.contains(code);
}

bool CProductData::demonstrationCode(std::string_view code, std::string& demonstrationCode) const {
    const auto found = DemoOf.find(code);
    demonstrationCode = found == DemoOf.end() ? "" : found->second;
    return found != DemoOf.end();
}

bool CProductData::hasFileViewerEdition(std::string_view code) const {
    return ViewerProducts.contains(code);
}

bool CProductData::hasProcessorSpecificSetups(std::string_view code) const {
    return traitsOf(code).processorSpecificSetups;
}

void CProductData::keepProductData(std::string path, std::string text) {
    ProductDataValues.clear();
    productDataPath = std::move(path);
    productDataText = std::move(text);
}

std::string CProductData::buildVersion() const {
    const auto found = ProductDataValues.find("Version Number");
    return found == ProductDataValues.end() || found->second.empty() ? INSTALLER_BUILD_TEXT
                                                                     : std::string(found->second);
}

bool CProductData::displayName(std::string_view code, std::string_view edition, std::string& name) {
    name.clear();
    std::string qualifiedName;
    if (code.empty() || !productName(code, qualifiedName)) {
        return false;
    }
    if (qualifiedName.find(edition) == std::string::npos) {
        qualifiedName.append(" ").append(edition);
    }
    const auto displayTemplate = DisplayNameTemplates.find(code);
    if (displayTemplate == DisplayNameTemplates.end()) {
        name = qualifiedName;
        return true;
    }
    name = replaceAll(displayTemplate->second, "<PRODUCT NAME>", qualifiedName, true);
    name = replaceAll(name, "<BUILD>", buildVersion(), true);
    return true;
}
