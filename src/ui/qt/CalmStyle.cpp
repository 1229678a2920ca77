#include "ui/qt/CalmStyle.h"

#include <QPainter>
#include <QStyleOption>
#include <QTreeView>

namespace tessarin {

namespace {

constexpr int kWordsMargin = 3;
constexpr int kHeadMargin = 5;
constexpr int kRowGap = 4;
constexpr int kFrameWidth = 2;  // a frame of one would lose edges at 150 %
constexpr int kHoverAlpha = 110;

// A grid's heads, such as seven names of days, need all their width for their words.
bool IsHeadOfAList(const QWidget* widget) {
  return widget != nullptr && qobject_cast<const QTreeView*>(widget->parentWidget()) != nullptr;
}

void DrawRounded(QPainter& painter, const QRectF& place, qreal radius, const QPen& line,
                 const QBrush& fill) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(line);
  painter.setBrush(fill);
  painter.drawRoundedRect(place, radius, radius);
  painter.restore();
}

}  // namespace

CalmStyle::CalmStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

int CalmStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
  if (metric == PM_FocusFrameHMargin) return kWordsMargin;
  if (metric == PM_DefaultFrameWidth) return kFrameWidth;
  if (metric == PM_HeaderMargin && IsHeadOfAList(widget)) return kHeadMargin;
  return QProxyStyle::pixelMetric(metric, option, widget);
}

QSize CalmStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                  const QWidget* widget) const {
  QSize needed = QProxyStyle::sizeFromContents(type, option, size, widget);
  if (type == CT_ItemViewItem) needed.rheight() += kRowGap;
  return needed;
}

void CalmStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
  const QRectF place = option->rect;
  if (element == PE_PanelButtonTool && (option->state & State_AutoRaise)) {
    QColor colour = option->palette.color(QPalette::Highlight);
    if (!(option->state & (State_On | State_Sunken))) colour.setAlpha(kHoverAlpha);
    DrawRounded(*painter, place.adjusted(1, 1, -1, -1), 6, Qt::NoPen, colour);
  } else if (element == PE_Frame) {
    DrawRounded(*painter, place.adjusted(0.5, 0.5, -0.5, -0.5), 3,
                option->palette.color(QPalette::Mid), Qt::NoBrush);
  } else {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

// The colour of selected rows is too faint for the thin beginning of a long piece of work.
void CalmStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
  const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
  if (element != CE_ProgressBarContents || bar == nullptr) {
    QProxyStyle::drawControl(element, option, painter, widget);
    return;
  }
  QStyleOptionProgressBar vivid = *bar;
  vivid.palette.setColor(QPalette::Highlight, bar->palette.color(QPalette::Link));
  QProxyStyle::drawControl(element, &vivid, painter, widget);
}

// The words of a box's buttons say enough without an icon, and disabled words need no shadow.
int CalmStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* result) const {
  if (hint == SH_DialogButtonBox_ButtonsHaveIcons || hint == SH_EtchDisabledText) return 0;
  return QProxyStyle::styleHint(hint, option, widget, result);
}

}  // namespace tessarin
