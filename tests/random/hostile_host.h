#pragma once

#include <cstddef>
#include <cstdint>

// Lets a host do what the bytes say to a view. It keeps none of its promises but those on which
// memory itself depends: it passes real records and lists. It ends, empties and remakes its view
// whenever it is called, and names items that never were or are no more.
void PlayHostileHost(const std::uint8_t* bytes, std::size_t length);
