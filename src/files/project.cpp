#include "files/project.h"

#include <fstream>
#include <system_error>

#include "core/messages.h"

namespace branok {

namespace {

// The comments of a save. Raises Run_Time_Error when the default ones are missing; the open mine's
// are at hand also when another program has taken the template away.
Comment_Template Comments_For_Save(const Project& project, const Program_Folders& folders) {
  if (project.db.Data_Ver != 6) return Comment_Template::Load(folders.default_template());
  try {
    return Comment_Template::Load(folders.user_template());
  } catch (const Run_Time_Error&) {
    return project.comments;
  }
}

// A project that could not keep its comments goes on with the default ones: its version stays.
void Become_Ver6(Database& db, const Comment_Template& comments, const Program_Folders& folders,
                 Dialogue& dialogue) {
  try {
    comments.save(folders.user_template());
    db.Data_Ver = 6;
  } catch (const Run_Time_Error& fault) {
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

// The file is the project's from now on, by a name that holds in every folder.
void Take_File(Project& project, const std::filesystem::path& file, Settings& settings) {
  std::error_code no_folder;
  const std::filesystem::path full = std::filesystem::absolute(file, no_folder);
  project.file = no_folder ? file : full;
  project.db.Check_Count = 0;
  Add_Recent(settings, project.file.string());
}

// What a failed read has left is no mine; only its version stays, which chooses the template.
void Empty_After_Failure(Project& project) {
  const std::int16_t version = project.db.Data_Ver;
  Reset_Database(project.db);
  project.db.Data_Ver = version;
  project.file.clear();
}

void Keep_Comments(Read_Result& result, const Comment_Template& comments,
                   const Program_Folders& folders, Dialogue& dialogue) {
  try {
    comments.save(folders.user_template());
  } catch (const Run_Time_Error& fault) {
    if (!result.ok) return;
    result = {.ok = false, .line = 0, .fault = fault.what(), .silent = false};
    dialogue.show(messages::File_Error("Read Ver.6 Data File"));
  }
}

std::string Place(const Read_Result& result) {
  return result.line > 0 ? "line " + std::to_string(result.line) + ": " : std::string();
}

}  // namespace

Read_Result Open_Project(Project& project, const std::filesystem::path& file,
                         const Program_Folders& folders, Settings& settings, Dialogue& dialogue) {
  Reset_Database(project.db);
  Read_Result result = Read_Ver6(project.db, file, project.comments, dialogue);
  const bool opened = result.line > 0;
  if (opened) Keep_Comments(result, project.comments, folders, dialogue);
  if (!result.ok) {
    dialogue.remark(Place(result) + result.fault);
    Empty_After_Failure(project);
    return result;
  }
  Take_File(project, file, settings);
  return result;
}

std::optional<Read_Result> Open_Recent(Project& project, int row, const Program_Folders& folders,
                                       Settings& settings, Dialogue& dialogue) {
  const std::string name = settings.Recent_File.at(static_cast<std::size_t>(row));
  if (std::ifstream(name).good()) return Open_Project(project, name, folders, settings, dialogue);
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
  if (!has_own_comments) Become_Ver6(project.db, project.comments, folders, dialogue);
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
