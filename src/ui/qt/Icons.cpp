#include "ui/qt/Icons.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <memory>

namespace tessarin {

namespace {

constexpr char kInk[] = "#1f2937";  // the one colour of the drawings that follows the theme

// Renderers by file and ink; a drawing is parsed once for each.
QSvgRenderer& Renderer(const QString& file, const QColor& ink) {
  static QHash<QString, std::shared_ptr<QSvgRenderer>> renderers;
  auto& renderer = renderers[file + ink.name()];
  if (renderer == nullptr) {
    QFile source(file);
    QByteArray drawing;
    if (source.open(QIODevice::ReadOnly)) drawing = source.readAll();
    drawing.replace(kInk, ink.name().toLatin1());
    renderer = std::make_shared<QSvgRenderer>(drawing);
  }
  return *renderer;
}

class SvgIconEngine : public QIconEngine {
 public:
  explicit SvgIconEngine(QString file) : file_(std::move(file)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    DrawSvg(*painter, rect, file_, mode != QIcon::Disabled);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }

  QIconEngine* clone() const override { return new SvgIconEngine(file_); }

 private:
  QString file_;
};

}  // namespace

void SetDrawingFolders(const std::filesystem::path& applicationFolder,
                       const std::filesystem::path& shippedFolder) {
  for (const char* kind : {"icons", "animations"}) {
    QDir::setSearchPaths(QLatin1String(kind),
                         {QString::fromStdString((applicationFolder / kind).string()),
                          QString::fromStdString((shippedFolder / kind).string())});
  }
}

QIcon Icon(const std::string& name) {
  const QString file = QStringLiteral("icons:%1.svg").arg(QString::fromStdString(name));
  return name.empty() || !QFile::exists(file) ? QIcon() : QIcon(new SvgIconEngine(file));
}

void DrawSvg(QPainter& painter, const QRectF& area, const QString& file, bool enabled) {
  auto& renderer = Renderer(file, QApplication::palette().color(QPalette::WindowText));
  if (!renderer.isValid()) return;
  const QSizeF size = QSizeF(renderer.viewBoxF().size()).scaled(area.size(), Qt::KeepAspectRatio);
  QRectF place(QPointF(), size);
  place.moveCenter(area.center());
  const qreal opacity = painter.opacity();
  if (!enabled) painter.setOpacity(opacity * 0.35);
  renderer.render(&painter, place);
  painter.setOpacity(opacity);
}

}  // namespace tessarin
