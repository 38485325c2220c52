# What every target of our own is compiled with; Qt's headers count as system headers.
add_library(quillane_flags INTERFACE)
target_compile_options(quillane_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
  $<$<AND:$<BOOL:${CMAKE_CXX_COMPILER_LAUNCHER}>,$<CXX_COMPILER_ID:GNU>>:-fpch-preprocess>)
target_compile_definitions(quillane_flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
  QT_NO_KEYWORDS QT_NO_FOREACH QT_STRICT_ITERATORS QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  QT_NO_CONTEXTLESS_CONNECT QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(QUILLANE_SANITIZE)
  target_compile_options(quillane_flags INTERFACE -fsanitize=${QUILLANE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(quillane_flags INTERFACE -fsanitize=${QUILLANE_SANITIZE})
endif()
