#include "support/resource_fork_writer.h"

#include "support/archive_writer.h"

#include <algorithm>
#include <stdexcept>

namespace {

constexpr uint32_t kDataOffset = 256;
constexpr uint32_t kTypeList = 28;  // from the start of the map

void append(Bytes& to, const Bytes& bytes) {
    to.insert(to.end(), bytes.begin(), bytes.end());
}

void appendBig(Bytes& to, size_t size, uint64_t value) {
    if (value >> 8 * size != 0) throw std::runtime_error("a resource fork has no room for this");
    to.resize(to.size() + size);
    storeBig(to, to.size() - size, size, static_cast<uint32_t>(value));
}

// The references of a type.
struct TypeList {
    std::string type;
    Bytes references = {};
};

Bytes& referencesOf(std::vector<TypeList>& lists, const std::string& type) {
    for (TypeList& list : lists)
        if (list.type == type) return list.references;
    return lists.emplace_back(TypeList{type}).references;
}

void add(const ForkResource& resource, Bytes& references, Bytes& names, Bytes& data) {
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

}  // namespace

Bytes resourceForkOf(const std::vector<ForkResource>& resources) {
    std::vector<TypeList> lists;
    Bytes names, data, references;
    for (const ForkResource& resource : resources)
        add(resource, referencesOf(lists, resource.type), names, data);

    // The names stand before the references, which may take more than the 64 KB that the names have to be in.
    const size_t typesSize = 2 + 8 * lists.size();
    Bytes map(24);
    appendBig(map, 2, kTypeList);
    appendBig(map, 2, kTypeList + typesSize);
    appendBig(map, 2, (lists.size() - 1) & 0xFFFF);
    for (const TypeList& list : lists) {
        append(map, bytesOf(list.type));
        appendBig(map, 2, list.references.size() / 12 - 1);
        appendBig(map, 2, typesSize + names.size() + references.size());
        append(references, list.references);
    }
    append(map, names);
    append(map, references);

    Bytes fork;
    for (const size_t field : {size_t{kDataOffset}, kDataOffset + data.size(), data.size(), map.size()})
        appendBig(fork, 4, field);
    std::copy(fork.begin(), fork.end(), map.begin());
    fork.resize(kDataOffset);
    append(fork, data);
    append(fork, map);
    return fork;
}
