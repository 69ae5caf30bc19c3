#pragma once
// Decoding the viewer's pictures before it shows them: on a worker, from the file, at the size
// the viewer first shows them, so that the picture stands at once when it comes.

#include "platform/gdi/Picture.h"

namespace vellumry {

class Program;

// The picture the grid holds for position `i`: the plain one of a marked position; an empty
// picture for a position the grid hasn't filled.
gdi::Picture heldPicture(Program& program, int i);

// Queues the decoding of position `i`'s picture at the size the viewer fits it to the screen.
// Never blocks; a position without a picture is passed over.
void decodeForViewer(Program& program, int i);

}  // namespace vellumry
