#include "support/resource_fork_writer.h"

#include "support/archive_writer.h"

#include <algorithm>
#include <utility>

tidewell::ResourceType typeOf(const std::string& code) {
    tidewell::ResourceType type;
    std::copy_n(code.begin(), sizeof type.bytes, type.bytes);
    return type;
}

Bytes resourceForkOf(const std::vector<ForkResource>& resources) {
    std::vector<std::pair<std::string, Bytes>> lists;  // types and their references
    Bytes names, data;
    for (const ForkResource& resource : resources) {
        if (lists.empty() || lists.back().first != resource.type) lists.emplace_back(resource.type, Bytes());
        Bytes& references = lists.back().second;
        appendBig(references, 2, static_cast<uint16_t>(resource.id));
        appendBig(references, 2, resource.name ? names.size() : 0xFFFF);
        references.push_back(resource.attributes);
        appendBig(references, 3, data.size());
        appendBig(references, 4, 0);
        if (resource.name) {
            appendBig(names, 1, resource.name->size());
            append(names, bytesOf(*resource.name));
        }
        appendBig(data, 4, resource.data.size());
        append(data, resource.data);
    }

    // The names stand before the references, which may take more than the 64 KB that the names have to be in.
    constexpr size_t kData = 256, kTypeList = 28;  // the second from the start of the map
    const size_t typesSize = 2 + 8 * lists.size();
    Bytes map(24), references;
    appendBig(map, 2, kTypeList);
    appendBig(map, 2, kTypeList + typesSize);
    appendBig(map, 2, lists.size() - 1);
    for (const auto& [type, ofType] : lists) {
        append(map, bytesOf(type));
        appendBig(map, 2, ofType.size() / 12 - 1);
        appendBig(map, 2, typesSize + names.size() + references.size());
        append(references, ofType);
    }
    append(map, names);
    append(map, references);

    Bytes fork;
    for (const size_t field : {kData, kData + data.size(), data.size(), map.size()})
        appendBig(fork, 4, field);
    std::copy(fork.begin(), fork.end(), map.begin());
    fork.resize(kData);
    append(fork, data);
    append(fork, map);
    return fork;
}
