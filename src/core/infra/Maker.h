#pragma once

/// Who makes the program, and where the maker is reached.
namespace Maker {

constexpr const char* kName = "Brackenlight Software";
constexpr const char* kProgramTitle = "Quillane";
constexpr const char* kWebAddress = "https://www.brackenlight.example";
/// Of the mailboxes; that for error reports is "bugs" and the year in front of it.
constexpr const char* kMailDomain = "brackenlight.example";
constexpr const char* kSupportAddress = "support@brackenlight.example";

}  // namespace Maker
