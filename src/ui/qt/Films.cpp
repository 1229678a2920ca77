#include "ui/qt/Films.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/qt/Icons.h"

namespace tessarin {

namespace {

constexpr int kFrames = 12;
constexpr int kFrameMilliseconds = 90;

}  // namespace

void PictureWidget::SetImage(const std::string& name) {
  file_ =
      name.empty() ? QString() : QStringLiteral("icons:%1.svg").arg(QString::fromStdString(name));
  update();
}

void PictureWidget::SetContent(const std::vector<std::uint8_t>& file) {
  if (file == content_) return;
  content_ = file;
  picture_.loadFromData(content_.data(), static_cast<int>(content_.size()));
  update();
}

void PictureWidget::SetEmptyText(const QString& words) {
  emptyText_ = words;
  update();
}

void PictureWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (!picture_.isNull()) {
    DrawPicture(painter);
  } else if (!file_.isEmpty()) {
    DrawSvg(painter, rect(), file_, isEnabled());
  } else if (content_.empty() && !emptyText_.isEmpty()) {
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
  }
}

// A dot of the picture is a dot of the screen, however the screen is scaled, or a square of them.
void PictureWidget::DrawPicture(QPainter& painter) const {
  const qreal ratio = devicePixelRatioF();
  const QSizeF room = QSizeF(size()) * ratio;
  const QSizeF own = picture_.size();
  qreal factor = std::min(room.width() / own.width(), room.height() / own.height());
  painter.setRenderHint(QPainter::SmoothPixmapTransform, factor < 1);
  if (factor > 1) factor = std::floor(factor);
  QRectF place(QPointF(), own * factor / ratio);
  place.moveCenter(QRectF(rect()).center());
  place.moveTopLeft(QPointF(std::floor(place.x() * ratio), std::floor(place.y() * ratio)) / ratio);
  painter.drawImage(place, picture_);
}

FilmWidget::FilmWidget(QWidget* parent) : QWidget(parent) {
  clock_.setInterval(kFrameMilliseconds);
  connect(&clock_, &QTimer::timeout, this, [this] { Step(); });
}

void FilmWidget::SetFilm(const QString& file) {
  const auto name = file.section(QLatin1Char('\\'), -1).section(QLatin1Char('.'), 0, 0);
  stem_ = name.section(QLatin1Char(' '), -1);
  update();
}

void FilmWidget::SetPlaying(bool playing) {
  playing_ = playing;
  if (playing_ && isVisible()) {
    clock_.start();
  } else {
    clock_.stop();
  }
}

void FilmWidget::Step() {
  frame_ = (frame_ + 1) % kFrames;
  update();
}

void FilmWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  DrawSvg(painter, rect(), QStringLiteral("animations:%1-%2.svg").arg(stem_).arg(frame_ + 1));
}

void FilmWidget::showEvent(QShowEvent*) { SetPlaying(playing_); }
void FilmWidget::hideEvent(QHideEvent*) { clock_.stop(); }

}  // namespace tessarin
