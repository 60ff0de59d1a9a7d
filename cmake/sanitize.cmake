# VORLANE_SANITIZE=ON builds everything with AddressSanitizer and UndefinedBehaviorSanitizer, in
# a build directory of its own. Any undefined behaviour aborts the program that met it, so the
# test that ran it fails. Included before the targets, so that all of them get the options.
option(VORLANE_SANITIZE "Build everything with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)

if(VORLANE_SANITIZE)
  set(vorlane_sanitizers -fsanitize=address,undefined -fno-sanitize-recover=undefined)
  # The standard library's own checks too: an index past the end of a std::array is caught.
  add_compile_options(${vorlane_sanitizers} -fno-omit-frame-pointer -D_GLIBCXX_ASSERTIONS)
  add_link_options(${vorlane_sanitizers})
  message(STATUS "Sanitizers on: ${vorlane_sanitizers}")
endif()
