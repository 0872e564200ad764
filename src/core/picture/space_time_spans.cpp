#include "core/picture/space_time_spans.h"

#include <cstddef>

void FindSpans(int count, double step, std::vector<Span>& spans) {
    spans.resize(static_cast<std::size_t>(count));
    double position = 0.0;
    for (Span& span : spans) {
        const double begin = position;
        position += step;
        const int whole = static_cast<int>(position);
        span.First = static_cast<int>(begin) + 1;
        span.FirstPart = span.First - begin;
        span.Last = whole + 1;
        span.LastPart = position - whole;
    }
}
