#pragma once

// Drawn pictures and moving pictures.

#include <QImage>
#include <QTimer>
#include <QWidget>
#include <cstdint>
#include <string>
#include <vector>

namespace tessarin {

// One picture: a drawing of the program's, as large as its place allows, or a picture file with its
// own proportions, made smaller where it has no room and larger by whole factors, so that the few
// dots of a phone's picture stay sharp.
class PictureWidget : public QWidget {
 public:
  using QWidget::QWidget;
  void SetImage(const std::string& name);
  // A file's bytes; the picture file stands before the drawing. Bytes that are no picture show
  // nothing.
  void SetContent(const std::vector<std::uint8_t>& file);
  void SetEmptyText(const QString& words);

 protected:
  void paintEvent(QPaintEvent*) override;

 private:
  void DrawPicture(QPainter& painter) const;

  QString file_;
  std::vector<std::uint8_t> content_;
  QImage picture_;
  QString emptyText_;
};

// A film of twelve drawings, named <stem>-1.svg to <stem>-12.svg. It moves only
// while it plays and can be seen.
class FilmWidget : public QWidget {
 public:
  explicit FilmWidget(QWidget* parent);
  // The name of a film file: "\FindCOM.avi" shows the film FindCOM, and a last word decides:
  // "\data transfer MPtoPC.avi" shows MPtoPC.
  void SetFilm(const QString& file);
  void SetPlaying(bool playing);

 protected:
  void paintEvent(QPaintEvent*) override;
  void showEvent(QShowEvent*) override;
  void hideEvent(QHideEvent*) override;

 private:
  void Step();

  QString stem_;
  bool playing_ = false;
  int frame_ = 0;
  QTimer clock_;
};

}  // namespace tessarin
