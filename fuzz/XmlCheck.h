#pragma once

// Whether a report text is well-formed XML by libxml2's reading, without the network and
// without printing the parser's complaints.

#include <libxml/parser.h>

#include <string>

namespace tb::fuzz {

inline bool ParsesAsXml(const std::string& xml, std::string* firstAttribute = nullptr) {
    xmlDocPtr doc = xmlReadMemory(xml.data(), static_cast<int>(xml.size()), "report.xml", nullptr,
                                  XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING);
    if (doc == nullptr)
        return false;
    if (firstAttribute != nullptr) {
        const xmlNode* root = xmlDocGetRootElement(doc);
        xmlChar* value =
            root && root->properties ? xmlNodeGetContent(root->properties->children) : nullptr;
        *firstAttribute = value ? reinterpret_cast<const char*>(value) : "";
        xmlFree(value);
    }
    xmlFreeDoc(doc);
    return true;
}

}  // namespace tb::fuzz
