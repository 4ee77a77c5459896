#include "core/settings.h"

#include <SimpleIni.h>

#include <algorithm>
#include <chrono>
#include <climits>
#include <cstdlib>
#include <ctime>

#include "core/numbers.h"
#include "core/safe_file.h"

namespace branok {

namespace {

namespace fs = std::filesystem;

// The integer at the start of an entry; 0 where none stands or it does not fit.
int Entry_Number(const CSimpleIniA& ini, const char* key) {
  const char* text = ini.GetValue("Position", key, "0");
  const long number = std::strtol(text, nullptr, 10);
  return number >= INT_MIN && number <= INT_MAX ? static_cast<int>(number) : 0;
}

std::string Row_Key(int row) { return std::to_string(row + 1); }

// A name with a line end in it would break the entry and everything below it.
bool Is_One_Line(const std::string& name) {
  return name.find_first_of("\r\n") == std::string::npos;
}

void Load_Ini(CSimpleIniA& ini, const fs::path& file) {
  try {
    ini.LoadData(Read_Whole(file));
  } catch (const Run_Time_Error&) {
    ini.Reset();  // none yet, or none that can be read: the program starts with its defaults
  }
}

}  // namespace

Settings Load_Settings(const fs::path& file) {
  CSimpleIniA ini;
  Load_Ini(ini, file);
  Settings settings;
  settings.top = Entry_Number(ini, "Top");
  settings.left = Entry_Number(ini, "Left");
  for (int row = 0; row < recent_rows; ++row) {
    const std::string_view name = ini.GetValue("Files", Row_Key(row).c_str(), "");
    settings.Recent_File[static_cast<std::size_t>(row)] = name.substr(0, longest_recent);
  }
  return settings;
}

void Save_Settings(const Settings& settings, const fs::path& file, bool with_position,
                   std::string_view end_time) {
  CSimpleIniA ini;
  Load_Ini(ini, file);
  if (with_position) {
    ini.SetValue("Position", "Top", std::to_string(settings.top).c_str());
    ini.SetValue("Position", "Left", std::to_string(settings.left).c_str());
  }
  ini.SetValue("Time", "EndTime", std::string(end_time).c_str());
  for (int row = 0; row < recent_rows; ++row) {
    const std::string& name = settings.Recent_File[static_cast<std::size_t>(row)];
    ini.SetValue("Files", Row_Key(row).c_str(), Is_One_Line(name) ? name.c_str() : "");
  }
  std::string text;
  if (ini.Save(text) < 0) throw Run_Time_Error("the settings cannot be written");
  Write_Whole(file, text);
}

std::string End_Time() {
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 32> text{};
  const std::size_t size = std::strftime(text.data(), text.size(), "%Y/%m/%d %H:%M:%S", &local);
  return {text.data(), size};
}

void Add_Recent(Settings& settings, const std::string& name) {
  auto& rows = settings.Recent_File;
  auto place = std::find(rows.begin(), rows.end(), name);
  if (place == rows.end()) --place;
  std::rotate(rows.begin(), place, place + 1);
  rows[0] = name;
}

}  // namespace branok
