// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include <cstdlib>

// The core throws nothing; the library's code that could (an index that is out of range) ends the program
// here.
extern "C" {
void* __cxa_allocate_exception(unsigned long /*size*/)
{
    std::abort();
}
void __cxa_throw(void* /*exception*/, void* /*type*/, void* (* /*destroy*/)(void*))
{
    std::abort();
}
}
