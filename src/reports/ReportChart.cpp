#include "reports/ReportChart.h"

#include "documents/pages/TableLayout.h"

#include <algorithm>

namespace quillary::reports {
namespace {

using documents::Align;
using documents::Composer;
using documents::PageFont;

// In twips.
constexpr double kChartHeight = 1300;
constexpr double kLegendHeight = 260;
constexpr double kLabelHeight = 220;
constexpr double kGap = 200;
constexpr double kWidestBar = 260;
constexpr int kBarColour = 0x2F6F4F;
constexpr int kBeforeColour = 0xB8BFC6;
constexpr int kAxisColour = 0x8A9299;
const PageFont kChartFont{.size = 7};

struct Scale {
  double least = 0;  // of the amounts shown
  double most = 0;
  double top = 0;  // of the page

  double YOf(double amount) const { return top + (most - amount) / (most - least) * kChartHeight; }
};

Scale ScaleOf(const std::vector<ChartBar>& bars) {
  Scale scale;
  for (const ChartBar& bar : bars) {
    for (const Money amount : {bar.amount, bar.before}) {
      scale.least = std::min(scale.least, amount.ToDouble());
      scale.most = std::max(scale.most, amount.ToDouble());
    }
  }
  return scale;
}

void DrawBar(Composer& page, const Scale& scale, double x, double width, Money amount, int colour) {
  if (amount == Money()) return;
  const double middle = x + width / 2;
  page.AddLine({.x1 = middle,
                .y1 = scale.YOf(0),
                .x2 = middle,
                .y2 = scale.YOf(amount.ToDouble()),
                .width = width,
                .colour = colour});
}

void WriteText(Composer& page, const QString& text, double left, double room, double top,
               Align align) {
  page.AddRun(documents::PlaceText(text, kChartFont, align, left, room, top, page.Fonts()));
}

void DrawLegend(Composer& page, double left, double top, bool comparesYears) {
  constexpr double kMark = 110;
  constexpr double kEntryWidth = 1500;
  const auto entry = [&](double x, int colour, const char* words) {
    page.AddLine({.x1 = x,
                  .y1 = top + 90,
                  .x2 = x + kMark,
                  .y2 = top + 90,
                  .width = kMark,
                  .colour = colour});
    WriteText(page, QString::fromLatin1(words), x + kMark + 60, kEntryWidth, top, Align::Left);
  };
  entry(left, kBarColour, "These days");
  if (comparesYears) entry(left + kEntryWidth, kBeforeColour, "A year before");
}

}  // namespace

void DrawChart(Composer& page, const std::vector<ChartBar>& bars) {
  Scale scale = ScaleOf(bars);
  if (scale.most <= scale.least) return;
  const double height = kGap + kLegendHeight + kChartHeight + kLabelHeight;
  if (page.CurrentY() + height > page.BottomEdge()) page.NewPage();
  const double top = page.CurrentY() + kGap;
  scale.top = top + kLegendHeight;
  const double left = page.LeftEdge();
  const double room = page.RightEdge() - left;
  const bool comparesYears = std::any_of(bars.begin(), bars.end(),
                                         [](const ChartBar& bar) { return bar.before != Money(); });
  DrawLegend(page, left, top, comparesYears);
  const double step = room / static_cast<double>(bars.size());
  const double width = std::min(kWidestBar, step * 0.36);
  for (size_t at = 0; at < bars.size(); ++at) {
    const double middle = left + step * (static_cast<double>(at) + 0.5);
    DrawBar(page, scale, middle - (comparesYears ? width : width / 2), width, bars[at].amount,
            kBarColour);
    if (comparesYears) DrawBar(page, scale, middle, width, bars[at].before, kBeforeColour);
    WriteText(page, bars[at].label, middle - step / 2, step, scale.top + kChartHeight + 30,
              Align::Centre);
  }
  page.AddLine({.x1 = left,
                .y1 = scale.YOf(0),
                .x2 = left + room,
                .y2 = scale.YOf(0),
                .width = 10,
                .colour = kAxisColour});
  page.SetCurrentY(scale.top + kChartHeight + kLabelHeight);
}

}  // namespace quillary::reports
