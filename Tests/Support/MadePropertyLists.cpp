#include <Support/MadePropertyLists.h>

namespace tolvane {
namespace {

std::string bigEndian(std::uint64_t value, std::size_t size) {
    std::string bytes;
    for (std::size_t i = size; i > 0; --i) {
        bytes += static_cast<char>(value >> (8 * (i - 1)) & 0xFF);
    }
    return bytes;
}

/// The marker of an object and its length in four bytes.
std::string header(char marker, std::size_t length) {
    return marker + std::string("\x12") + bigEndian(length, 4);
}

}

std::string xmlPropertyList(std::string_view content) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC "
           "\"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n<plist version=\"1.0\">\n" +
           std::string(content) + "\n</plist>\n";
}

std::string xmlPropertyList(const Strings& dictionary) {
    std::string entries;
    for (const auto& [key, value] : dictionary) {
        entries.append("<key>").append(key).append("</key><string>");
        entries.append(value).append("</string>\n");
    }
    return xmlPropertyList("<dict>\n" + entries + "</dict>");
}

std::string binaryObjects(const std::vector<std::string>& objects) {
    std::string bytes = "bplist00";
    std::string table;
    for (const std::string& object : objects) {
        table += bigEndian(bytes.size(), 4);
        bytes += object;
    }
    const std::string trailer = std::string(6, '\0') + "\x04\x02" + bigEndian(objects.size(), 8) +
                                bigEndian(0, 8) + bigEndian(bytes.size(), 8);
    return bytes + table + trailer;
}

std::string binaryPropertyList(const Strings& dictionary) {
    std::vector<std::string> objects(1);
    std::string keys;
    std::string values;
    for (const auto& [key, value] : dictionary) {
        keys += bigEndian(objects.size(), 2);
        objects.push_back(header('\x5F', key.size()) + key);
        values += bigEndian(objects.size(), 2);
        objects.push_back(header('\x5F', value.size()) + value);
    }
    objects.front() = header('\xDF', dictionary.size()) + keys + values;
    return binaryObjects(objects);
}

std::string binaryArray(const std::vector<std::size_t>& references) {
    std::string array = header('\xAF', references.size());
    for (const std::size_t reference : references) {
        array += bigEndian(reference, 2);
    }
    return array;
}

}
