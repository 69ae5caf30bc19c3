#pragma once
// The desktop's trash, in the freedesktop layout, so that the file manager can list and restore
// what the program discards.

#include <string>

namespace vellumry::os {

// Takes the file `path`, named by its exact bytes, out of its folder into a trash:
// - on the device of the home trash ($XDG_DATA_HOME/Trash, else ~/.local/share/Trash): there;
// - on another device: the trash at the top of that volume, $topdir/.Trash/$uid where an
//   administrator made $topdir/.Trash (sticky, not a link), else $topdir/.Trash-$uid (made 0700);
// - where that volume has none: copied into the home trash, then removed.
// Only when no trash can be had at all (the home trash can't be made, nor the volume's) is the
// file deleted. A symbolic link goes itself, never its target. Trash folders are made 0700.
// False when `path` isn't a file or it stays where it was.
bool discardFile(const std::string& path);

}  // namespace vellumry::os
