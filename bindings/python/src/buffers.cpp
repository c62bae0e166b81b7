// An array is walked in its own order, whatever its shape: axes are put into the order of the output's memory, and
// neighbours that lie as one are joined. What is left, mostly one axis, is read into a block of doubles, converted, and
// written. Two plain arrays of doubles or floats take the library's own way.
#include "buffers.h"

#include <algorithm>
#include <bit>
#include <cfenv>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

constexpr size_t BLOCK = 1024;          // elements that are converted at a time
constexpr Py_ssize_t LONG_ARRAY = 2048; // from here on other threads may run meanwhile: a microsecond

// --- elements

template <class Bits> Bits swapped(Bits bits) {
    if constexpr (sizeof(Bits) == 8)
        return __builtin_bswap64(bits);
    else if constexpr (sizeof(Bits) == 4)
        return __builtin_bswap32(bits);
    else if constexpr (sizeof(Bits) == 2)
        return __builtin_bswap16(bits);
    else
        return bits;
}

template <class T, bool SWAPPED> T load(const char *at) {
    using Bits = std::conditional_t<
        sizeof(T) == 8, uint64_t,
        std::conditional_t<sizeof(T) == 4, uint32_t, std::conditional_t<sizeof(T) == 2, uint16_t, uint8_t>>>;
    Bits bits;
    std::memcpy(&bits, at, sizeof bits);
    return std::bit_cast<T>(SWAPPED ? swapped(bits) : bits);
}

template <class T, bool SWAPPED> void readRun(const char *in, Py_ssize_t step, double *out, size_t count) {
    for (size_t i = 0; i < count; ++i, in += step)
        out[i] = static_cast<double>(load<T, SWAPPED>(in));
}

template <class T, bool SWAPPED> void writeRun(const double *in, char *out, Py_ssize_t step, size_t count) {
    for (size_t i = 0; i < count; ++i, out += step) {
        const T value = static_cast<T>(in[i]);
        const T stored = load<T, SWAPPED>(reinterpret_cast<const char *>(&value));
        std::memcpy(out, &stored, sizeof stored);
    }
}

struct Element {
    char kind; // f real, i signed, u unsigned
    Py_ssize_t size;
    void (*read[2])(const char *in, Py_ssize_t step, double *out, size_t count); // as they are, swapped
    void (*write[2])(const double *in, char *out, Py_ssize_t step, size_t count);
};

template <class T> constexpr Element wholeNumber(char kind) {
    return {kind, sizeof(T), {readRun<T, false>, readRun<T, true>}, {}};
}
template <class T> constexpr Element realNumber() {
    return {'f', sizeof(T), {readRun<T, false>, readRun<T, true>}, {writeRun<T, false>, writeRun<T, true>}};
}

constexpr Element elements[] = {
    realNumber<double>(),       realNumber<float>(),        wholeNumber<int8_t>('i'),  wholeNumber<int16_t>('i'),
    wholeNumber<int32_t>('i'),  wholeNumber<int64_t>('i'),  wholeNumber<uint8_t>('u'), wholeNumber<uint16_t>('u'),
    wholeNumber<uint32_t>('u'), wholeNumber<uint64_t>('u'),
};

char kindOf(char code) {
    return std::strchr("fd", code) ? 'f' : std::strchr("bhilqn", code) ? 'i' : std::strchr("BHILQN", code) ? 'u' : '\0';
}

// The element of a format as the struct module writes it, "<d"; null for what is no real number.
const Element *elementOf(const char *format, Py_ssize_t size, bool *swapped) {
    if (!format)
        format = "B";
    constexpr bool little = std::endian::native == std::endian::little;
    *swapped = *format == '<' ? !little : (*format == '>' || *format == '!') && little;
    if (*format && std::strchr("@=<>!^", *format))
        ++format;
    if (!*format || format[1])
        return nullptr;
    const char kind = kindOf(*format);
    for (const Element &element : elements)
        if (element.kind == kind && element.size == size)
            return &element;
    return nullptr;
}

// --- memory

// The memory that an object lends, for the life of this.
class Lease {
public:
    Lease(PyObject *object, int flags) {
        if (PyObject_GetBuffer(object, &view, flags) != 0)
            throw ErrorIsSet();
    }
    Lease(const Lease &) = delete;
    ~Lease() { PyBuffer_Release(&view); }
    Py_buffer view;
};

struct Axis {
    Py_ssize_t count, inStep, outStep;
};

struct Walk {
    Axis axes[PyBUF_MAX_NDIM];
    int depth = 0;
    const Element *in, *out;
    bool inSwapped, outSwapped;
    const char *from;
    char *to;
    Py_ssize_t count = 1;
};

// Where in one of the two arrays a walk is.
struct Cursor {
    const Walk &walk;
    Py_ssize_t Axis::*step;
    char *at;
    Py_ssize_t index[PyBUF_MAX_NDIM] = {};

    const Axis &innermost() const { return walk.axes[walk.depth - 1]; }
    size_t left() const { return static_cast<size_t>(innermost().count - index[walk.depth - 1]); }

    void advance(size_t count) {
        const auto moved = static_cast<Py_ssize_t>(count);
        int axis = walk.depth - 1;
        at += moved * (innermost().*step);
        index[axis] += moved;
        while (axis > 0 && index[axis] == walk.axes[axis].count) {
            at += walk.axes[axis - 1].*step - index[axis] * (walk.axes[axis].*step);
            index[axis] = 0;
            ++index[--axis];
        }
    }
};

Walk walkOver(const Py_buffer &in, const Py_buffer &out) {
    Walk walk;
    walk.from = static_cast<const char *>(in.buf);
    walk.to = static_cast<char *>(out.buf);
    for (int i = 0; i < in.ndim; ++i) {
        walk.count *= in.shape[i];
        if (in.shape[i] != 1)
            walk.axes[walk.depth++] = {in.shape[i], in.strides[i], out.strides[i]};
    }
    std::stable_sort(walk.axes, walk.axes + walk.depth,
                     [](const Axis &a, const Axis &b) { return std::abs(a.outStep) > std::abs(b.outStep); });
    int joined = 0;
    for (int i = 0; i < walk.depth; ++i) {
        const Axis axis = walk.axes[i];
        Axis &before = walk.axes[joined > 0 ? joined - 1 : 0];
        if (joined > 0 && before.inStep == axis.count * axis.inStep && before.outStep == axis.count * axis.outStep)
            before = {before.count * axis.count, axis.inStep, axis.outStep};
        else
            walk.axes[joined++] = axis;
    }
    if (joined == 0)
        walk.axes[joined++] = {walk.count, in.itemsize, out.itemsize};
    walk.depth = joined;
    return walk;
}

struct Extent {
    const char *begin, *end;
};

Extent extentOf(const char *data, const Walk &walk, Py_ssize_t Axis::*step, Py_ssize_t size) {
    Extent extent = {data, data + size};
    for (int i = 0; i < walk.depth; ++i) {
        const Py_ssize_t reach = (walk.axes[i].count - 1) * (walk.axes[i].*step);
        (reach < 0 ? extent.begin : extent.end) += reach;
    }
    return extent;
}

// Whether an element that is read may have been written over before.
bool overlaps(const Walk &walk) {
    const Extent in = extentOf(walk.from, walk, &Axis::inStep, walk.in->size);
    const Extent out = extentOf(walk.to, walk, &Axis::outStep, walk.out->size);
    if (in.end <= out.begin || out.end <= in.begin)
        return false;
    bool same = walk.from == walk.to && walk.in == walk.out;
    for (int i = 0; i < walk.depth; ++i)
        same = same && walk.axes[i].inStep == walk.axes[i].outStep;
    return !same;
}

// --- the work, which needs no interpreter

void readBlock(Cursor &cursor, double *block, size_t count) {
    const Walk &walk = cursor.walk;
    while (count > 0) {
        const size_t run = std::min(count, cursor.left());
        walk.in->read[walk.inSwapped](cursor.at, cursor.innermost().inStep, block, run);
        cursor.advance(run);
        block += run;
        count -= run;
    }
}

void writeBlock(Cursor &cursor, const double *block, size_t count) {
    const Walk &walk = cursor.walk;
    while (count > 0) {
        const size_t run = std::min(count, cursor.left());
        walk.out->write[walk.outSwapped](block, cursor.at, cursor.innermost().outStep, run);
        cursor.advance(run);
        block += run;
        count -= run;
    }
}

Cursor inputOf(const Walk &walk) {
    return {walk, &Axis::inStep, const_cast<char *>(walk.from)};
}
Cursor outputOf(const Walk &walk) {
    return {walk, &Axis::outStep, walk.to};
}

template <class T> bool isPlain(const Walk &walk) {
    return walk.depth == 1 && walk.in->kind == 'f' && walk.in == walk.out && walk.in->size == sizeof(T) &&
           !walk.inSwapped && !walk.outSwapped && walk.axes[0].inStep == sizeof(T) &&
           walk.axes[0].outStep == sizeof(T) && reinterpret_cast<uintptr_t>(walk.from) % alignof(T) == 0 &&
           reinterpret_cast<uintptr_t>(walk.to) % alignof(T) == 0;
}

void convertBlocks(const UomConversion *conversion, const Walk &walk) {
    double block[BLOCK];
    Cursor in = inputOf(walk), out = outputOf(walk);
    for (auto left = static_cast<size_t>(walk.count); left > 0;) {
        const size_t count = std::min(left, BLOCK);
        readBlock(in, block, count);
        uom_ConvertMany(conversion, block, block, count);
        writeBlock(out, block, count);
        left -= count;
    }
}

// `copy` has room for all elements when the arrays overlap, else it is null.
void convertWalk(const UomConversion *conversion, const Walk &walk, double *copy) {
    const auto count = static_cast<size_t>(walk.count);
    if (copy) {
        Cursor in = inputOf(walk), out = outputOf(walk);
        readBlock(in, copy, count);
        uom_ConvertMany(conversion, copy, copy, count);
        writeBlock(out, copy, count);
    } else if (isPlain<double>(walk)) {
        uom_ConvertMany(conversion, reinterpret_cast<const double *>(walk.from), reinterpret_cast<double *>(walk.to),
                        count);
    } else if (isPlain<float>(walk)) {
        uom_ConvertManyFloat(conversion, reinterpret_cast<const float *>(walk.from), reinterpret_cast<float *>(walk.to),
                             count);
    } else {
        convertBlocks(conversion, walk);
    }
}

// The same, and whether the processor has noted an overflow. Asking first spares most calls the clearing, which is slow.
bool convertAndWatch(const UomConversion *conversion, const Walk &walk, double *copy) {
    if (std::fetestexcept(FE_OVERFLOW))
        std::feclearexcept(FE_OVERFLOW);
    convertWalk(conversion, walk, copy);
    return std::fetestexcept(FE_OVERFLOW) != 0;
}

void checkShapes(const Py_buffer &in, const Py_buffer &out) {
    if (in.ndim == out.ndim && std::equal(in.shape, in.shape + in.ndim, out.shape))
        return;
    const auto shape = [](const Py_buffer &view) {
        Ref tuple = checked(PyTuple_New(view.ndim));
        for (int i = 0; i < view.ndim; ++i)
            PyTuple_SET_ITEM(tuple.get(), i, checked(PyLong_FromSsize_t(view.shape[i])).release());
        return tuple;
    };
    const Ref inShape = shape(in), outShape = shape(out);
    PyErr_Format(PyExc_ValueError, "the values have the shape %R, and out has %R", inShape.get(), outShape.get());
    throw ErrorIsSet();
}

void checkElements(const Walk &walk, const Py_buffer &in, const Py_buffer &out) {
    if (!walk.in)
        PyErr_Format(PyExc_TypeError, "values of the format \"%.50s\" are no real numbers", in.format);
    else if (!walk.out || !walk.out->write[0])
        PyErr_Format(PyExc_TypeError, "out is an array of float64 or float32, not of the format \"%.50s\"",
                     out.format ? out.format : "B");
    if (PyErr_Occurred())
        throw ErrorIsSet();
}

} // namespace

bool convertBuffers(const UomConversion *conversion, PyObject *in, PyObject *out) {
    const Lease from(in, PyBUF_RECORDS_RO), to(out, PyBUF_RECORDS);
    checkShapes(from.view, to.view);
    bool inSwapped, outSwapped;
    const Element *inElement = elementOf(from.view.format, from.view.itemsize, &inSwapped);
    const Element *outElement = elementOf(to.view.format, to.view.itemsize, &outSwapped);
    Walk walk = walkOver(from.view, to.view);
    walk.in = inElement;
    walk.out = outElement;
    walk.inSwapped = inSwapped;
    walk.outSwapped = outSwapped;
    checkElements(walk, from.view, to.view);
    if (walk.count == 0)
        return false;
    std::unique_ptr<double[]> copy;
    if (overlaps(walk))
        copy.reset(new double[static_cast<size_t>(walk.count)]);
    if (walk.count < LONG_ARRAY)
        return convertAndWatch(conversion, walk, copy.get());
    PyThreadState *const state = PyEval_SaveThread();
    const bool overflowed = convertAndWatch(conversion, walk, copy.get());
    PyEval_RestoreThread(state);
    return overflowed;
}
