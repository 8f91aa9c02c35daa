// The export macro of OstrelCore: the library's own functions carry it, nothing else is exported.
#pragma once

#if defined(_WIN32)
#  if defined(OSTREL_BUILDING)
#    define OSTREL_API __declspec(dllexport)
#  elif defined(OSTREL_STATIC)
#    define OSTREL_API
#  else
#    define OSTREL_API __declspec(dllimport)
#  endif
#else
#  define OSTREL_API __attribute__((visibility("default")))
#endif
