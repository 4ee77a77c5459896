// Blocks of grid cells between the program and others: spreadsheets, word processors, text editors.
#pragma once

#include <QMimeData>
#include <memory>
#include <string>
#include <string_view>

namespace branok {

/// A grid's Clip (cells separated by tabs, rows by CR) in the forms that other programs take: text
/// with rows ended by LF, an HTML table, comma-separated values.
std::unique_ptr<QMimeData> Clipboard_Form(std::string_view clip);

/// Puts a Clip on the clipboard.
void Copy_To_Clipboard(std::string_view clip);

/// The text on the clipboard, empty when there is none.
std::string Clipboard_Text();

}  // namespace branok
