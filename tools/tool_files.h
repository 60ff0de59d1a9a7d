// What the generators in tools/ share: their answer to --help and to wrong arguments, and the
// writing or checking of the files they make.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string_view>
#include <vector>

// The usage on standard output and 0 when it was asked for, on standard error and 2 otherwise.
inline int Usage(std::string_view first_argument, const char* usage) {
  const bool asked = first_argument == "--help";
  std::fputs(usage, asked ? stdout : stderr);
  return asked ? 0 : 2;
}

// The arguments "[--check] PATH" of a generator: the path and whether to check it, or nothing,
// with the usage shown and `status` to exit with, for --help or other arguments.
struct Target {
  std::filesystem::path Path;
  bool Check = false;
};
inline std::optional<Target> Target_Of(int argc, char* argv[], const char* usage, int& status) {
  const std::string_view first = argc > 1 ? argv[1] : "";
  const bool check = argc == 3 && first == "--check";
  if ((argc == 2 && first != "--help" && !first.empty()) || check) return Target{argv[argc - 1], check};
  status = Usage(first, usage);
  return std::nullopt;
}

// Writes the bytes to the path, or with `check` tells whether the file there holds them. False,
// with a line on standard error, for a file that differs or can't be written.
inline bool Write_Or_Check(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes, bool check) {
  // The path as UTF-8 on every system (Windows keeps it in UTF-16).
  const std::u8string name = path.u8string();
  const char* shown = reinterpret_cast<const char*>(name.c_str());
  if (check) {
    std::ifstream in(path, std::ios::binary);
    if (std::vector<std::uint8_t>(std::istreambuf_iterator<char>(in), {}) == bytes) return true;
    std::fprintf(stderr, "%s differs from what its generator makes\n", shown);
    return false;
  }
  if (!path.parent_path().empty()) std::filesystem::create_directories(path.parent_path());
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (out) return true;
  std::fprintf(stderr, "cannot write %s\n", shown);
  return false;
}
