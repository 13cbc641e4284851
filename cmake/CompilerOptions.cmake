# Flags that every target of this project shares, as the interface target tessel8_options.

add_library(tessel8_options INTERFACE)
target_include_directories(tessel8_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(tessel8_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Werror
  # Vectors of eight floats are passed in two registers or one, by build; none crosses a library.
  -Wno-psabi
  # The same bits on every processor and in every build: no fused multiply-add.
  -ffp-contract=off)

if(TESSEL8_SANITIZE)
  target_compile_options(tessel8_options INTERFACE
    -fsanitize=${TESSEL8_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
    # Instrumented code confuses this warning, in the standard library as well as here.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_link_options(tessel8_options INTERFACE -fsanitize=${TESSEL8_SANITIZE})
endif()
