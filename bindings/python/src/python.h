// What the files of the extension share: owned references, texts in and out, errors, and the objects that the Python side
// of the package lends.
//
// Threads. All here is called with the interpreter lock held, and calls of the library that look at a catalogue keep it.
// So no two threads are in one catalogue at once, and none needs a lock of its own.
#ifndef UOM_PYTHON_PYTHON_H
#define UOM_PYTHON_PYTHON_H

#define PY_SSIZE_T_CLEAN
#include <Python.h>

#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "uom/uom.hpp"

// An owned reference, null when a call has failed.
class Ref {
public:
    Ref() = default;
    explicit Ref(PyObject *owned) : object_(owned) {}
    Ref(Ref &&other) noexcept : object_(other.release()) {}
    Ref &operator=(Ref &&other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Ref() { Py_XDECREF(object_); }

    static Ref to(PyObject *borrowed) { return Ref(Py_XNewRef(borrowed)); }
    PyObject *get() const { return object_; }
    PyObject *release() { return std::exchange(object_, nullptr); }
    explicit operator bool() const { return object_ != nullptr; }

private:
    PyObject *object_ = nullptr;
};

// What the Python side registers when the package is imported.
struct Lent {
    PyObject *unitError;
    PyObject *warn;         // (note): gives a UnitWarning to whoever called the package
    PyObject *convertOther; // (conversion, values, out): what is no float and no int
    PyObject *remake;       // makes a conversion again from its pickled parts
    PyObject *inverse;      // (conversion): the one back
    PyObject *catalogue;    // the one of the functions of the module
};
extern Lent lent;

// An error that is set in the interpreter, on its way to the next guarded().
struct ErrorIsSet {};

// Sets a UnitError that is about no place of a text.
void setUnitError(const char *message);

// Runs a function that returns a new reference; what it throws becomes the interpreter's error.
template <class Call> PyObject *guarded(Call &&call) {
    try {
        return call();
    } catch (const ErrorIsSet &) {
    } catch (const uom::Error &error) {
        if (error.status() == UOM_NO_MEMORY)
            PyErr_NoMemory();
        else
            setUnitError(error.what());
    } catch (const std::bad_alloc &) {
        PyErr_NoMemory();
    }
    return nullptr;
}

// The reference, or ErrorIsSet for null.
Ref checked(PyObject *owned);

// A str as UTF-8 that ends at its zero byte, for as long as the object lives; TypeError for another
// type; UnitError, with the place, for a zero character and for half of a surrogate pair.
const char *textOf(PyObject *object, const char *what);

// The same of a class string, which is not empty; UnitError for a "/" with nothing behind it, which the library's reader
// passes over.
const char *classTextOf(PyObject *object);
const char *classTextOrNone(PyObject *object);

// A str from a text of the library: UTF-8, or Latin-1 where it is none. A message may be cut within a character.
Ref pythonText(std::string_view text);
Ref pythonMessage(std::string_view text);
Ref pythonList(const std::vector<std::string> &texts);

// Sets a UnitError about a typed text, with its places in characters, and throws ErrorIsSet.
[[noreturn]] void refuseEntry(PyObject *typed, const UomEntry &entry);
[[noreturn]] void refuse(const char *message, PyObject *typed);

extern PyType_Spec catalogueSpec, conversionSpec;
extern PyTypeObject *conversionType, *catalogueType;

#endif
