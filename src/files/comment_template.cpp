#include "files/comment_template.h"

#include "core/safe_file.h"
#include "files/text_lines.h"

namespace branok {

namespace {

constexpr std::string_view line_end = "\r\n";

}  // namespace

void Comment_Template::add_comment(std::string_view line) {
  if (!Is_Comment(line)) text_ += '*';
  text_ += line;
  text_ += line_end;
}

void Comment_Template::end_block(std::string_view terminator) {
  text_ += terminator;
  text_ += line_end;
}

Comment_Template Comment_Template::From_Text(std::string_view text) {
  Comment_Template comments;
  Text_Lines lines(text);
  for (std::string_view line; lines.next(line);) {
    if (Is_Terminator(line)) {
      comments.end_block(line);
    } else {
      comments.add_comment(line);
    }
  }
  return comments;
}

Comment_Template Comment_Template::Load(const std::filesystem::path& file) {
  return From_Text(Read_Whole(file));
}

void Comment_Template::save(const std::filesystem::path& file) const { Write_Whole(file, text_); }

void Template_Cursor::Copy_Comment_Block(std::string& out) {
  while (!rest_.empty()) {
    const std::size_t size = rest_.find('\n') + 1;  // every line of a template has its line end
    const std::string_view line = rest_.substr(0, size);
    rest_.remove_prefix(size);
    if (Is_Terminator(line)) return;
    out += line;
  }
}

}  // namespace branok
