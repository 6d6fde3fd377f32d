#include <vellomark/vellomark.h>

IVellomark::IVellomark() = default;

IVellomark::IVellomark(const IVellomark&) = default;

IVellomark& IVellomark::operator=(const IVellomark&) = default;

IVellomark::~IVellomark() = default;
