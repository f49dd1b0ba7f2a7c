#pragma once

#include <cstddef>
#include <cstdint>

// Runs the operations that the bytes choose. The host breaks every rule except those on which
// memory safety depends: it passes valid records and lists. Inside callbacks it destroys, clears
// and creates its view, and it passes deleted and invalid items.
void RunRandomInput(const std::uint8_t* bytes, std::size_t length);
