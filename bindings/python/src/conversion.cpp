#include "conversion.h"

#include <cmath>
#include <cstring>
#include <memory>
#include <structmember.h>

#include "buffers.h"

namespace {

ConversionObject *conversionOf(PyObject *self) {
    return reinterpret_cast<ConversionObject *>(self);
}

// conversion(values, out=None): the arguments as they come.
PyObject *call(PyObject *self, PyObject *const *arguments, size_t flags, PyObject *names) {
    const Py_ssize_t count = PyVectorcall_NARGS(flags), named = names ? PyTuple_GET_SIZE(names) : 0;
    PyObject *out = nullptr;
    if (named == 1 && PyUnicode_CompareWithASCIIString(PyTuple_GET_ITEM(names, 0), "out") == 0)
        out = arguments[count];
    if (count != 1 || named != (out ? 1 : 0)) {
        PyErr_SetString(PyExc_TypeError, "a Conversion is called as conversion(values, out=None)");
        return nullptr;
    }
    return convertObject(conversionOf(self), arguments[0], out == Py_None ? nullptr : out);
}

struct Free {
    void operator()(UomConversion *conversion) const { uom_FreeConversion(conversion); }
};

// The typed text that a status of the library is about.
PyObject *refusedText(int32_t status, PyObject *from, PyObject *to, PyObject *quantity) {
    return status == UOM_CONVERT_BAD_CLASS ? quantity : status == UOM_CONVERT_BAD_SOURCE ? from : to;
}

// Of a pressure the units say by themselves whether they are gauge or absolute: nobody means a difference by them.
bool saysAll(const UomEntry &entry) {
    return std::strcmp(entry.classString, "Pres") == 0;
}

void warnOf(PyObject *note) {
    checked(PyObject_CallOneArg(lent.warn, note));
}

PyObject *newConversion(PyTypeObject *, PyObject *arguments, PyObject *names) {
    static const char *const keywords[] = {"from_", "to", "quantity", "catalogue", "_quiet", nullptr};
    PyObject *from, *to, *quantity = Py_None, *catalogue = Py_None;
    int quiet = 0;
    if (!PyArg_ParseTupleAndKeywords(arguments, names, "OO|O$Op:Conversion", const_cast<char **>(keywords), &from, &to,
                                     &quantity, &catalogue, &quiet))
        return nullptr;
    if (catalogue == Py_None)
        catalogue = lent.catalogue;
    if (!PyObject_TypeCheck(catalogue, catalogueType))
        return PyErr_Format(PyExc_TypeError, "catalogue is a Catalogue, not %.100s", Py_TYPE(catalogue)->tp_name);
    return guarded([&] {
        return makeConversion(*reinterpret_cast<CatalogueObject *>(catalogue), from, to, quantity, !quiet).release();
    });
}

void deallocate(PyObject *self) {
    ConversionObject &object = *conversionOf(self);
    uom_FreeConversion(object.conversion);
    for (PyObject *held : {object.from, object.to, object.given, object.found, object.note, object.origin})
        Py_XDECREF(held);
    PyTypeObject *const type = Py_TYPE(self);
    type->tp_free(self);
    Py_DECREF(type);
}

// --- what it is

PyObject *constantOf(PyObject *self, double *factor, double *offset, const double &wanted) {
    if (uom_GetConversionConstants(conversionOf(self)->conversion, factor, offset) == UOM_DONE)
        return PyFloat_FromDouble(wanted);
    return guarded([&]() -> PyObject * {
        refuse("The conversion is not linear: no factor and no offset tell it.", conversionOf(self)->from);
    });
}

PyObject *factorOf(PyObject *self, void *) {
    double factor = NAN;
    return constantOf(self, &factor, nullptr, factor);
}

PyObject *offsetOf(PyObject *self, void *) {
    double offset = NAN;
    return constantOf(self, nullptr, &offset, offset);
}

PyObject *isLinear(PyObject *self, void *) {
    double factor;
    return PyBool_FromLong(uom_GetConversionConstants(conversionOf(self)->conversion, &factor, nullptr) == UOM_DONE);
}

PyObject *quantityOf(PyObject *self, void *) {
    const ConversionObject &object = *conversionOf(self);
    return Py_NewRef(object.given == Py_None ? object.found : object.given);
}

// What the texts don't tell and a conversion that is made again must have: factor and offset, or None, and one value.
Ref probe(const ConversionObject &object) {
    const double sample = uom_ConvertOne(object.conversion, 35.0);
    double factor, offset;
    if (uom_GetConversionConstants(object.conversion, &factor, &offset) == UOM_DONE)
        return checked(Py_BuildValue("ddd", factor, offset, sample));
    return checked(Py_BuildValue("OOd", Py_None, Py_None, sample));
}

PyObject *probeOf(PyObject *self, void *) {
    return guarded([&] { return probe(*conversionOf(self)).release(); });
}

PyObject *reduce(PyObject *self, PyObject *) {
    const ConversionObject &object = *conversionOf(self);
    return guarded([&] {
        const Ref constants = probe(object);
        return Py_BuildValue("O(OOOOO)", lent.remake, object.from, object.to, object.given, object.origin,
                             constants.get());
    });
}

PyObject *inverse(PyObject *self, PyObject *) {
    return PyObject_CallOneArg(lent.inverse, self);
}

PyObject *parts(const ConversionObject &object) {
    return PyTuple_Pack(4, object.from, object.to, object.given, object.origin);
}

// Two with the same token give the same results, in whatever process.
PyObject *daskToken(PyObject *self, PyObject *) {
    return parts(*conversionOf(self));
}

PyObject *compare(PyObject *self, PyObject *other, int operation) {
    if (Py_TYPE(other) != conversionType || (operation != Py_EQ && operation != Py_NE))
        Py_RETURN_NOTIMPLEMENTED;
    const Ref a(parts(*conversionOf(self))), b(parts(*conversionOf(other)));
    return a && b ? PyObject_RichCompare(a.get(), b.get(), operation) : nullptr;
}

Py_hash_t hash(PyObject *self) {
    const Ref all(parts(*conversionOf(self)));
    return all ? PyObject_Hash(all.get()) : -1;
}

PyObject *represent(PyObject *self) {
    const ConversionObject &object = *conversionOf(self);
    if (object.given == Py_None)
        return PyUnicode_FromFormat("uom.Conversion(%R, %R)", object.from, object.to);
    return PyUnicode_FromFormat("uom.Conversion(%R, %R, quantity=%R)", object.from, object.to, object.given);
}

// _into(values, out): between two objects with the buffer protocol. Whether something has overflowed.
PyObject *into(PyObject *self, PyObject *const *arguments, Py_ssize_t count) {
    if (count != 2)
        return PyErr_Format(PyExc_TypeError, "_into() takes values and out");
    return guarded(
        [&] { return PyBool_FromLong(convertBuffers(conversionOf(self)->conversion, arguments[0], arguments[1])); });
}

PyMethodDef methods[] = {
    {"_into", reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(into)), METH_FASTCALL, nullptr},
    {"inverse", inverse, METH_NOARGS, PyDoc_STR("The conversion back.")},
    {"__dask_tokenize__", daskToken, METH_NOARGS, nullptr},
    {"__reduce__", reduce, METH_NOARGS, nullptr},
    {}};

PyGetSetDef properties[] = {
    {"factor", factorOf, nullptr, PyDoc_STR("The factor of y = (x + offset) * factor. UnitError for API gravity."),
     nullptr},
    {"offset", offsetOf, nullptr,
     PyDoc_STR("The offset of y = (x + offset) * factor, in the units converted from. UnitError for API gravity."),
     nullptr},
    {"linear", isLinear, nullptr, PyDoc_STR("Whether a factor and an offset tell the conversion."), nullptr},
    {"quantity", quantityOf, nullptr, PyDoc_STR("The quantity: as it was given, or found by the units."), nullptr},
    {"_probe", probeOf, nullptr, nullptr, nullptr},
    {}};

constexpr Py_ssize_t at(size_t place) {
    return static_cast<Py_ssize_t>(place);
}

PyMemberDef members[] = {
    {"__vectorcalloffset__", T_PYSSIZET, at(offsetof(ConversionObject, call)), READONLY, nullptr},
    {"from_", T_OBJECT, at(offsetof(ConversionObject, from)), READONLY,
     PyDoc_STR("The text of the units converted from.")},
    {"to", T_OBJECT, at(offsetof(ConversionObject, to)), READONLY, PyDoc_STR("The text of the units converted to.")},
    {"note", T_OBJECT, at(offsetof(ConversionObject, note)), READONLY,
     PyDoc_STR("What else the two texts could mean, or an empty text.")},
    {"_given", T_OBJECT, at(offsetof(ConversionObject, given)), READONLY, nullptr},
    {"_origin", T_OBJECT, at(offsetof(ConversionObject, origin)), READONLY, nullptr},
    {}};

PyDoc_STRVAR(doc,
             "Conversion(from_, to, quantity=None, *, catalogue=None)\n--\n\n"
             "A conversion that is prepared once and used many times, by any number of threads.\n\n"
             "from_, to   units as people type them: \"kPag\", \"kpa/(m3/sec)2\"; a number in front is a factor\n"
             "quantity    a class string, \"Pres/VolRate 2\"; without one the units decide\n"
             "catalogue   whose units and atmospheric pressure count; the one of the module without it\n\n"
             "conversion(values, out=None) converts numbers, sequences, arrays, Series and frames, as uom.convert\n"
             "does. Values are independent of each other; NaN and values below -1e35 (no value) pass as they are.\n"
             "Raises UnitError for a text that is not understood and for units that don't convert into each other.\n"
             "It pickles as its texts, with the catalogue and constants that it was made from.");

PyType_Slot slots[] = {{Py_tp_doc, const_cast<char *>(doc)},
                       {Py_tp_new, reinterpret_cast<void *>(newConversion)},
                       {Py_tp_dealloc, reinterpret_cast<void *>(deallocate)},
                       {Py_tp_call, reinterpret_cast<void *>(PyVectorcall_Call)},
                       {Py_tp_repr, reinterpret_cast<void *>(represent)},
                       {Py_tp_richcompare, reinterpret_cast<void *>(compare)},
                       {Py_tp_hash, reinterpret_cast<void *>(hash)},
                       {Py_tp_methods, methods},
                       {Py_tp_getset, properties},
                       {Py_tp_members, members},
                       {}};

} // namespace

PyType_Spec conversionSpec = {"uom.Conversion", sizeof(ConversionObject), 0,
                              Py_TPFLAGS_DEFAULT | Py_TPFLAGS_HAVE_VECTORCALL | Py_TPFLAGS_IMMUTABLETYPE, slots};

Ref makeConversion(CatalogueObject &catalogue, PyObject *from, PyObject *to, PyObject *quantity, bool warns) {
    const char *const fromText = textOf(from, "a unit"), *const toText = textOf(to, "a unit");
    const char *const quantityText = classTextOrNone(quantity);
    UomConversion *made = nullptr;
    UomEntry entry;
    const int32_t status =
        within(catalogue, [&] { return uom_NewConversionFromEntries(quantityText, fromText, toText, &made, &entry); });
    std::unique_ptr<UomConversion, Free> owner(made);
    if (status == UOM_NO_MEMORY)
        throw std::bad_alloc();
    if (status != UOM_DONE)
        refuseEntry(refusedText(status, from, to, quantity), entry);
    Ref note = pythonMessage(entry.message), found = pythonText(entry.classString);
    if (warns && *entry.message && !saysAll(entry))
        warnOf(note.get());
    Ref object = checked(conversionType->tp_alloc(conversionType, 0));
    ConversionObject &self = *conversionOf(object.get());
    self.call = call;
    self.conversion = owner.release();
    self.from = Py_NewRef(from);
    self.to = Py_NewRef(to);
    self.given = Py_NewRef(quantity);
    self.found = found.release();
    self.note = note.release();
    self.origin = Py_NewRef(catalogue.origin);
    return object;
}
