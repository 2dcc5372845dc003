// SPDX-License-Identifier: MIT
#pragma once

/// For the thread sanitizer, which does not see the toolkit's own locks: what one thread wrote
/// before its `handOver` is there after another's `takeOver` of the same thing. Elsewhere they do
/// nothing.
#ifdef __SANITIZE_THREAD__
extern "C" void __tsan_acquire(void* address);
extern "C" void __tsan_release(void* address);

namespace Tavik {

inline void handOver(void* baton)
{
    __tsan_release(baton);
}
inline void takeOver(void* baton)
{
    __tsan_acquire(baton);
}

} // namespace Tavik
#else
namespace Tavik {

inline void handOver(void*) { }
inline void takeOver(void*) { }

} // namespace Tavik
#endif
