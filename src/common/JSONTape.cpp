#include "common/JSONTape.h"

#include "common/ReservedMemory.h"

namespace tarnquill {

JSONTape::JSONTape(std::string_view source, std::size_t parts)
    : m_source(source),
      m_room(reservedMemory(parts * source.size() * (sizeof(std::uint64_t) + 1))),
      // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast)
      m_words(reinterpret_cast<std::uint64_t*>(m_room.get())),
      // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast)
      m_decoded(reinterpret_cast<char*>(m_words + parts * source.size())) {}

JSONTape JSONTape::secondPart() const {
    auto part = *this;
    part.m_size = m_source.size();
    part.m_decodedSize = m_source.size();
    part.m_longLengths.clear();
    return part;
}

void JSONTape::goOn(const JSONTape& secondPart) {
    append(Tag::gap, m_source.size());
    m_size = secondPart.m_size;
    m_decodedSize = secondPart.m_decodedSize;
    m_longLengths.insert(m_longLengths.end(), secondPart.m_longLengths.begin(),
                         secondPart.m_longLengths.end());
}

} // namespace tarnquill
