#pragma once

#if defined(_WIN32)
#define QUILLANE_EXPORT extern "C" __declspec(dllexport)
#else
#define QUILLANE_EXPORT extern "C" __attribute__((visibility("default")))
#endif
