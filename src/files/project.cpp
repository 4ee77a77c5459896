#include "files/project.h"

#include <algorithm>
#include <fstream>
#include <system_error>

#include "core/messages.h"

namespace branok {

namespace {

// The comments of a save. Raises Run_Time_Error when the default ones are missing; the open mine's
// are at hand also when another program has taken the template away.
Comment_Template Comments_For_Save(const Project& project, const Program_Folders& folders) {
  if (project.db.Data_Ver != 6) return Comment_Template::Load(folders.default_template());
  if (project.template_is_stale) return project.comments;
  try {
    return Comment_Template::Load(folders.user_template());
  } catch (const Run_Time_Error&) {
    return project.comments;
  }
}

// From now on the project has comments of its own, in memory where they cannot be kept on disk.
void Become_Ver6(Project& project, const Program_Folders& folders, Dialogue& dialogue) {
  project.db.Data_Ver = 6;
  try {
    project.comments.save(folders.user_template());
    project.template_is_stale = false;
  } catch (const Run_Time_Error& fault) {
    project.template_is_stale = true;
    dialogue.remark(fault.what());
  }
}

// False, after the message, when the comments cannot be found or the file not be written.
bool Write_With_Comments(Project& project, const std::filesystem::path& file,
                         const Program_Folders& folders, Dialogue& dialogue) {
  try {
    project.comments = Comments_For_Save(project, folders);
  } catch (const Run_Time_Error& fault) {
    dialogue.remark(fault.what());
    dialogue.show(messages::File_Error("Save Ver.6 Data File"));
    return false;
  }
  return Write_Ver6(project.db, file, project.comments, dialogue);
}

// A name that the settings file cannot hold would lead nowhere at the next start.
bool Can_Be_Recent(const std::string& name) {
  const bool one_line =
      std::none_of(name.begin(), name.end(), [](unsigned char c) { return c < ' '; });
  return one_line && name.size() <= longest_recent;
}

// The file is the project's from now on, by a name that holds in every folder.
void Take_File(Project& project, const std::filesystem::path& file, Settings& settings) {
  std::error_code no_folder;
  const std::filesystem::path full = std::filesystem::absolute(file, no_folder);
  project.file = no_folder ? file : full;
  project.db.Check_Count = 0;
  if (Can_Be_Recent(project.file.string())) Add_Recent(settings, project.file.string());
}

// What a failed read has left is no mine; only its version stays, which chooses the template.
void Empty_After_Failure(Project& project) {
  const std::int16_t version = project.db.Data_Ver;
  Reset_Database(project.db);
  project.db.Data_Ver = version;
  project.file.clear();
}

void Keep_Comments(Read_Result& result, const Comment_Template& comments,
                   const Program_Folders& folders) {
  try {
    comments.save(folders.user_template());
  } catch (const Run_Time_Error& fault) {
    if (result.ok) result = {.ok = false, .line = 0, .fault = fault.what(), .silent = false};
  }
}

// Where and why a read has failed: "mine.abk, line 7: ...".
std::string Reason(const std::filesystem::path& file, const Read_Result& result) {
  if (result.fault.starts_with(file.string())) return result.fault;  // it could not be opened
  std::string where = file.filename().string();
  if (result.line > 0) where += ", line " + std::to_string(result.line);
  return where + ": " + result.fault;
}

}  // namespace

Read_Result Open_Project(Project& project, const std::filesystem::path& file,
                         const Program_Folders& folders, Settings& settings, Dialogue& dialogue) {
  Reset_Database(project.db);
  project.template_is_stale = false;
  Busy busy(dialogue);
  Read_Result result = Read_Ver6(project.db, file, project.comments);
  const bool opened = result.line > 0;
  if (opened) Keep_Comments(result, project.comments, folders);
  busy.end();
  if (!result.ok) {
    Empty_After_Failure(project);
    dialogue.remark(Reason(file, result));
    if (!result.silent) dialogue.show(messages::File_Error("Read Ver.6 Data File"));
    return result;
  }
  Take_File(project, file, settings);
  return result;
}

std::optional<Read_Result> Open_Recent(Project& project, int row, const Program_Folders& folders,
                                       Settings& settings, Dialogue& dialogue) {
  const std::string name = settings.Recent_File.at(static_cast<std::size_t>(row));
  std::error_code gone;
  if (std::filesystem::is_regular_file(name, gone) && std::ifstream(name).good()) {
    return Open_Project(project, name, folders, settings, dialogue);
  }
  dialogue.show(messages::File_Not_Found(name));
  return std::nullopt;
}

bool Save_Project(Project& project, const std::filesystem::path& file,
                  const Program_Folders& folders, Settings& settings, Dialogue& dialogue,
                  Save_Command command) {
  const bool has_own_comments = project.db.Data_Ver == 6;
  if (!Write_With_Comments(project, file, folders, dialogue)) {
    if (command == Save_Command::save) dialogue.show(messages::File_Error("'Save'"));
    return false;
  }
  if (!has_own_comments) Become_Ver6(project, folders, dialogue);
  Take_File(project, file, settings);
  return true;
}

std::string Default_File_Name(const Database& db) {
  // A byte of the form 10xxxxxx continues a character.
  const std::string& name = db.Mine_Name;
  std::size_t end = 0;
  for (int characters = 0; end < name.size(); ++end) {
    const bool continues = (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U;
    if (!continues && ++characters > 8) break;
  }
  return std::string(Trim(std::string_view(name).substr(0, end))) + ".abk";
}

}  // namespace branok
