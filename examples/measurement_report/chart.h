#ifndef EXAMPLES_MEASUREMENT_REPORT_CHART_H
#define EXAMPLES_MEASUREMENT_REPORT_CHART_H

#include <string>
#include <vector>

#include "image.h"

namespace measurement_report {

/// The marks on the vertical axis: first * step, (first + 1) * step and so on up
/// to last * step. The step is 1, 2 or 5 times a power of ten.
struct axis {
  double step;
  int first;
  int last;
  int decimals;  ///< of the step, so that marks can be written without loss

  /// The text at mark `number`.
  std::string mark(int number) const;
};

/// An axis with at most eight marks that holds 0 and all values between `lowest`
/// and `highest`, which must be finite and below 1e12 in size. The step isn't
/// smaller than 0.001.
axis make_axis(double lowest, double highest);

/// Draws a bar for each value, from 0 up or down, with its number below while there is room. The
/// values must be within the axis.
image draw_chart(const std::vector<double>& values, const axis& scale);

}  // namespace measurement_report

#endif
