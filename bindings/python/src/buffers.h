// Conversion of whatever gives its memory by the buffer protocol: any shape and stride, whole and real numbers of any
// size and byte order, in place, into other memory or into memory that overlaps.
#ifndef UOM_PYTHON_BUFFERS_H
#define UOM_PYTHON_BUFFERS_H

#include "python.h"

// Converts all elements of one object into another of the same shape, which holds float32 or float64. The interpreter lock
// is released over long arrays. Throws ErrorIsSet: TypeError for what holds no real numbers, ValueError for other shapes,
// BufferError for memory that can't be written. Whether the processor has noted an overflow: a result, or a step to one
// that was of no use.
bool convertBuffers(const UomConversion *conversion, PyObject *in, PyObject *out);

#endif
