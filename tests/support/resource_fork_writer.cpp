#include "support/resource_fork_writer.h"

#include "support/archive_writer.h"

#include <algorithm>
#include <stdexcept>

namespace {

constexpr uint32_t kDataOffset = 256;
constexpr uint32_t kTypeList = 28;  // from the start of the map
constexpr uint32_t kMostOffset = 0xFFFF;

void append(Bytes& to, const Bytes& bytes) {
    to.insert(to.end(), bytes.begin(), bytes.end());
}

void appendBig(Bytes& to, size_t size, uint64_t value, uint64_t most) {
    if (value > most) throw std::runtime_error("a resource fork has no room for this");
    to.resize(to.size() + size);
    storeBig(to, to.size() - size, size, static_cast<uint32_t>(value));
}

struct TypeList {
    std::string type;
    Bytes references = {};
};

TypeList& listOf(std::vector<TypeList>& lists, const std::string& type) {
    const auto found =
        std::find_if(lists.begin(), lists.end(), [&](const TypeList& list) { return list.type == type; });
    if (found != lists.end()) return *found;
    if (type.size() != 4) throw std::runtime_error("a type has four characters");
    return lists.emplace_back(TypeList{type});
}

struct Parts {
    std::vector<TypeList> lists;
    Bytes names, data;
};

void add(Parts& parts, const ForkResource& resource) {
    Bytes& reference = listOf(parts.lists, resource.type).references;
    appendBig(reference, 2, static_cast<uint16_t>(resource.id), 0xFFFF);
    if (resource.name) {
        appendBig(reference, 2, parts.names.size(), 0x7FFF);
        appendBig(parts.names, 1, resource.name->size(), 0xFF);
        append(parts.names, bytesOf(*resource.name));
    } else {
        appendBig(reference, 2, 0xFFFF, 0xFFFF);
    }
    reference.push_back(resource.attributes);
    appendBig(reference, 3, parts.data.size(), 0xFFFFFF);
    appendBig(reference, 4, 0, 0);
    appendBig(parts.data, 4, resource.data.size(), 0xFFFFFFFF);
    append(parts.data, resource.data);
}

// From the count of types on. Where the references take too much room for names behind them, `gap` bytes for
// the names are left before them.
Bytes typesAndReferences(const std::vector<TypeList>& lists, size_t gap) {
    Bytes types, references;
    appendBig(types, 2, (lists.size() - 1) & 0xFFFF, 0xFFFF);
    const size_t start = 2 + 8 * lists.size() + gap;
    for (const TypeList& list : lists) {
        append(types, bytesOf(list.type));
        appendBig(types, 2, list.references.size() / 12 - 1, 0xFFFF);
        appendBig(types, 2, start + references.size(), kMostOffset);
        append(references, list.references);
    }
    types.resize(types.size() + gap);
    append(types, references);
    return types;
}

}  // namespace

Bytes resourceForkOf(const std::vector<ForkResource>& resources) {
    Parts parts;
    for (const ForkResource& resource : resources)
        add(parts, resource);

    size_t nameList = kTypeList + 2 + 8 * parts.lists.size();
    for (const TypeList& list : parts.lists)
        nameList += list.references.size();
    const bool namesLast = nameList <= kMostOffset;
    if (!namesLast) nameList = kTypeList + 2 + 8 * parts.lists.size();
    const Bytes types = typesAndReferences(parts.lists, namesLast ? 0 : parts.names.size());

    Bytes map(24);  // the copy of the header, then what is reserved and the attributes of the fork
    appendBig(map, 2, kTypeList, kMostOffset);
    appendBig(map, 2, nameList, kMostOffset);
    append(map, types);
    map.resize(std::max(map.size(), nameList + parts.names.size()));
    std::copy(parts.names.begin(), parts.names.end(), map.begin() + static_cast<ptrdiff_t>(nameList));

    Bytes header;
    for (const size_t field :
         {size_t{kDataOffset}, kDataOffset + parts.data.size(), parts.data.size(), map.size()})
        appendBig(header, 4, field, 0xFFFFFFFF);
    std::copy(header.begin(), header.end(), map.begin());
    Bytes fork = header;
    fork.resize(kDataOffset);
    append(fork, parts.data);
    append(fork, map);
    return fork;
}
