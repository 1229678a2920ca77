#include "ui/qt/Films.h"

#include <QPainter>

#include "ui/qt/Icons.h"

namespace tessarin {

namespace {

constexpr int kFrames = 12;
constexpr int kFrameMilliseconds = 90;

}  // namespace

void PictureWidget::SetImage(const std::string& name) {
  file_ = QStringLiteral("icons:%1.svg").arg(QString::fromStdString(name));
  update();
}

void PictureWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  DrawSvg(painter, rect(), file_, isEnabled());
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
