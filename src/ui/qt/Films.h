#pragma once

// Drawn pictures and moving pictures.

#include <QTimer>
#include <QWidget>
#include <string>

namespace tessarin {

// One drawing, as large as its place allows.
class PictureWidget : public QWidget {
 public:
  using QWidget::QWidget;
  void SetImage(const std::string& name);

 protected:
  void paintEvent(QPaintEvent*) override;

 private:
  QString file_;
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
