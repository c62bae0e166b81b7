// The type Conversion: a prepared conversion with the texts that it was made from.
#ifndef UOM_PYTHON_CONVERSION_H
#define UOM_PYTHON_CONVERSION_H

#include "catalogue.h"
#include "python.h"

struct ConversionObject {
    PyObject_HEAD vectorcallfunc call;
    UomConversion *conversion;
    PyObject *from, *to;
    PyObject *given;  // the quantity as it was given, or None
    PyObject *found;  // the quantity that the units were read in
    PyObject *note;   // what else the texts could mean; empty where nothing
    PyObject *origin; // of the catalogue when it was made
};

// A new conversion of typed texts in a started catalogue. With `warns` a note becomes a warning.
Ref makeConversion(CatalogueObject &catalogue, PyObject *from, PyObject *to, PyObject *quantity, bool warns);

// One value or many: numbers at once, the rest by the Python side; `out` may be null.
inline PyObject *convertObject(ConversionObject *self, PyObject *value, PyObject *out) {
    if (!out && PyFloat_CheckExact(value))
        return PyFloat_FromDouble(uom_ConvertOne(self->conversion, PyFloat_AS_DOUBLE(value)));
    if (!out && PyLong_CheckExact(value)) {
        const double number = PyLong_AsDouble(value);
        if (number == -1.0 && PyErr_Occurred())
            return nullptr;
        return PyFloat_FromDouble(uom_ConvertOne(self->conversion, number));
    }
    PyObject *const arguments[] = {reinterpret_cast<PyObject *>(self), value, out ? out : Py_None};
    return PyObject_Vectorcall(lent.convertOther, arguments, 3, nullptr);
}

#endif
