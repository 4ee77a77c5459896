// The state of the keyboard's lock keys, which Qt does not tell.
#pragma once

namespace branok {

struct Lock_Keys {
  bool caps = false;
  bool num = false;
};

/// As the display server knows them; all off where it cannot be asked.
Lock_Keys Read_Lock_Keys();

}  // namespace branok
