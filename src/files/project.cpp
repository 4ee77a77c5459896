#include "files/project.h"

#include "core/messages.h"

namespace branok {

namespace {

// The comments of a save; false, after the message, when their template cannot be read.
bool Load_Template(Comment_Template& comments, const std::filesystem::path& file,
                   Dialogue& dialogue) {
  try {
    comments = Comment_Template::Load(file);
    return true;
  } catch (const Run_Time_Error& fault) {
    dialogue.remark(fault.what());
    dialogue.show(messages::File_Error("Save Ver.6 Data File"));
    return false;
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

// What a failed read has left is no mine; only its version stays, which chooses the template.
void Empty_After_Failure(Database& db) {
  const std::int16_t version = db.Data_Ver;
  Reset_Database(db);
  db.Data_Ver = version;
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

Read_Result Open_Project(Database& db, const std::filesystem::path& file,
                         const Program_Folders& folders, Settings& settings, Dialogue& dialogue) {
  Reset_Database(db);
  Comment_Template comments;
  Read_Result result = Read_Ver6(db, file, comments, dialogue);
  const bool opened = result.line > 0;
  if (opened) Keep_Comments(result, comments, folders, dialogue);
  if (!result.ok) {
    dialogue.remark(Place(result) + result.fault);
    Empty_After_Failure(db);
    return result;
  }
  db.Check_Count = 0;
  Add_Recent(settings, file.string());
  return result;
}

bool Save_Project(Database& db, const std::filesystem::path& file, const Program_Folders& folders,
                  Settings& settings, Dialogue& dialogue, Save_Command command) {
  const bool has_own_comments = db.Data_Ver == 6;
  Comment_Template comments;
  if (!Load_Template(comments,
                     has_own_comments ? folders.user_template() : folders.default_template(),
                     dialogue) ||
      !Write_Ver6(db, file, comments, dialogue)) {
    if (command == Save_Command::save) dialogue.show(messages::File_Error("'Save'"));
    return false;
  }
  if (!has_own_comments) Become_Ver6(db, comments, folders, dialogue);
  db.Check_Count = 0;
  Add_Recent(settings, file.string());
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
