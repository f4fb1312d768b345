#pragma once

class QString;

namespace morvak {

class Dialogs;
class NoticeLine;
struct SetData;

/// What the QR screens give away. Each tells in `notice` what came of it.

/// Puts the code of `text` on the clipboard as an image of `side` by `side` pixels, in place of what was
/// there.
void copyQR(const QString& text, int side, NoticeLine& notice);

/// Asks for a file and writes the code of the set into it. Where the set has no code it says so and does not
/// ask.
void saveQRAs(const SetData& set, Dialogs& dialogs, NoticeLine& notice);

}  // namespace morvak
