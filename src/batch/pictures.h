// The pictures of the mine as branok-batch draws them: without any window or display.
#pragma once

#include <string>
#include <string_view>

#include "core/database.h"
#include "core/dialogue.h"
#include "drawing/cad.h"
#include "drawing/graphic.h"
#include "paint/picture_file.h"

namespace branok {

/// What the pictures show beside the network.
struct Picture_Options {
  Node_Info node_info = Node_Info::none;
  Airway_Info airway_info = Airway_Info::none;
  bool marks = true;
};

/// The mine drawn in the view "2dh", "2dew", "2dns" or "cad"; a mine without a CAD drawing gets one
/// from its survey coordinates. The database itself is not changed. A fault that leaves a usable
/// picture is remarked; raises Run_Time_Error when there is none.
Painting Draw_Mine(const Database& db, std::string_view view, const Picture_Options& options,
                   Dialogue& dialogue);

/// Makes what texts in pictures need, once: no display, and no message on standard error.
void Start_Painting();

}  // namespace branok
