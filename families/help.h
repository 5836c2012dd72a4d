// Endings of help texts that several families share. They are odd, and part of the interface.
#pragma once

namespace lmq {

inline constexpr char returns_statue[] = "VX_SUCCESS, or error code as defined in vx_statue_e\n";
inline constexpr char returns_unfinished[] = "VX_SUCCESS, or as defined in \n";

} // namespace lmq
