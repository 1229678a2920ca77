#pragma once

// The program's drawn icons. They are SVG files, drawn with one ink colour that is replaced by the
// theme's text colour, so an icon is right on light and dark.

#include <QIcon>
#include <QString>
#include <filesystem>
#include <string>

class QPainter;
class QRectF;

namespace tessarin {

// Where drawings are looked for: below the user's application folder first, so that they can be
// replaced, then below what the program ships. Call once, before anything is shown.
void SetDrawingFolders(const std::filesystem::path& applicationFolder,
                       const std::filesystem::path& shippedFolder);

// An icon that draws itself sharp at any size and scale. An empty or unknown name gives an empty
// icon.
QIcon Icon(const std::string& name);

// Draws one picture file of the resources into `area`, keeping its proportions, in the theme's ink.
void DrawSvg(QPainter& painter, const QRectF& area, const QString& file, bool enabled = true);

}  // namespace tessarin
