#include "catalogue.h"

#include "conversion.h"

namespace {

constexpr Py_ssize_t MOST_PREPARED = 512;

CatalogueObject &catalogueOf(PyObject *self) {
    return *reinterpret_cast<CatalogueObject *>(self);
}

void refuseClosed() {
    PyErr_SetString(PyExc_ValueError, "the catalogue is closed");
    throw ErrorIsSet();
}

// within() for a call that changes the catalogue: what was prepared before is forgotten.
template <class Call> PyObject *changing(PyObject *self, Call &&call) {
    makeReady(catalogueOf(self));
    ++catalogueOf(self).changes;
    PyDict_Clear(catalogueOf(self).prepared);
    within(catalogueOf(self), call);
    return Py_NewRef(Py_None);
}

// A list of tuples, one made of each row.
template <class Row, class Make> PyObject *listOfRows(const std::vector<Row> &rows, Make &&make) {
    Ref list = checked(PyList_New(static_cast<Py_ssize_t>(rows.size())));
    for (size_t i = 0; i < rows.size(); ++i)
        PyList_SET_ITEM(list.get(), static_cast<Py_ssize_t>(i), checked(make(rows[i])).release());
    return list.release();
}

// UnitError with the nearest class for a text that is no class string. For a call that has failed: it reads units.
void checkClass(CatalogueObject &self, PyObject *quantity) {
    const char *const text = classTextOf(quantity);
    UomConversion *made = nullptr;
    UomEntry entry;
    const int32_t status = within(self, [&] { return uom_NewConversionFromEntries(text, "kg", "kg", &made, &entry); });
    uom_FreeConversion(made);
    if (status == UOM_CONVERT_BAD_CLASS)
        refuseEntry(quantity, entry);
}

// --- its life

PyObject *newCatalogue(PyTypeObject *type, PyObject *, PyObject *) {
    Ref object(type->tp_alloc(type, 0));
    if (!object)
        return nullptr;
    CatalogueObject &self = catalogueOf(object.get());
    self.prepared = PyDict_New();
    self.origin = Py_NewRef(Py_None);
    self.catalogue = uom_NewCatalogue();
    if (!self.prepared || !self.catalogue)
        return PyErr_NoMemory();
    return object.release();
}

void freeCatalogue(CatalogueObject &self) {
    uom_FreeCatalogue(std::exchange(self.catalogue, nullptr));
}

void deallocate(PyObject *object) {
    PyTypeObject *const type = Py_TYPE(object);
    CatalogueObject &self = catalogueOf(object);
    freeCatalogue(self);
    Py_XDECREF(self.prepared);
    Py_XDECREF(self.origin);
    type->tp_free(object);
    Py_DECREF(type);
}

// _start(data, aliases): from the bytes of a data file and of a file of aliases.
PyObject *start(PyObject *object, PyObject *arguments) {
    const char *data, *aliases;
    Py_ssize_t size, aliasesSize;
    if (!PyArg_ParseTuple(arguments, "y#y#:_start", &data, &size, &aliases, &aliasesSize))
        return nullptr;
    CatalogueObject &self = catalogueOf(object);
    return guarded([&] {
        if (!self.catalogue)
            refuseClosed();
        if (self.started)
            return Py_NewRef(Py_None);
        self.started = true; // as within() asks for
        const auto started = within(self, [&] {
            const auto result = uom::tryStartText({data, static_cast<size_t>(size)});
            return result ? uom::tryReadAliases({aliases, static_cast<size_t>(aliasesSize)}) : result;
        });
        self.started = static_cast<bool>(started);
        if (!started)
            throw uom::Error(started.status());
        return Py_NewRef(Py_None);
    });
}

PyObject *close(PyObject *object, PyObject *) {
    PyDict_Clear(catalogueOf(object).prepared);
    freeCatalogue(catalogueOf(object));
    Py_RETURN_NONE;
}

// --- conversions

struct ConvertArguments {
    PyObject *value, *from, *to, *quantity = Py_None, *out = nullptr;
};

void misuse() {
    PyErr_SetString(PyExc_TypeError, "convert() is called as convert(values, from_, to, quantity=None, *, out=None)");
    throw ErrorIsSet();
}

PyObject **slotOf(ConvertArguments &arguments, PyObject *name) {
    const struct {
        const char *name;
        PyObject **slot;
    } slots[] = {{"quantity", &arguments.quantity},
                 {"out", &arguments.out},
                 {"to", &arguments.to},
                 {"from_", &arguments.from},
                 {"values", &arguments.value}};
    for (const auto &[slotName, slot] : slots)
        if (PyUnicode_CompareWithASCIIString(name, slotName) == 0)
            return slot;
    return nullptr;
}

ConvertArguments convertArguments(PyObject *const *arguments, Py_ssize_t count, PyObject *names) {
    ConvertArguments read = {nullptr, nullptr, nullptr};
    if (count > 4)
        misuse();
    PyObject **const places[] = {&read.value, &read.from, &read.to, &read.quantity};
    for (Py_ssize_t i = 0; i < count; ++i)
        *places[i] = arguments[i];
    for (Py_ssize_t i = 0; names && i < PyTuple_GET_SIZE(names); ++i) {
        PyObject **const slot = slotOf(read, PyTuple_GET_ITEM(names, i));
        if (!slot || (*slot && *slot != Py_None))
            misuse();
        *slot = arguments[count + i];
    }
    if (!read.value || !read.from || !read.to)
        misuse();
    if (read.out == Py_None)
        read.out = nullptr;
    return read;
}

// The prepared conversion of two texts, from the cache or new.
Ref preparedOf(CatalogueObject &self, PyObject *from, PyObject *to, PyObject *quantity) {
    if (!self.catalogue)
        refuseClosed();
    if (!PyUnicode_Check(from) || !PyUnicode_Check(to) || (quantity != Py_None && !PyUnicode_Check(quantity)))
        return makeConversion(self, from, to, quantity, true); // which says what is wrong
    const Ref key = checked(PyTuple_Pack(3, from, to, quantity));
    if (PyObject *known = PyDict_GetItemWithError(self.prepared, key.get()))
        return Ref::to(known);
    if (PyErr_Occurred())
        throw ErrorIsSet();
    makeReady(self); // which may be a change
    const uint64_t changes = self.changes;
    Ref made = makeConversion(self, from, to, quantity, true);
    if (changes != self.changes) // by another thread, while this one was giving a warning
        return made;
    if (PyDict_GET_SIZE(self.prepared) >= MOST_PREPARED)
        PyDict_Clear(self.prepared);
    if (PyDict_SetItem(self.prepared, key.get(), made.get()) != 0)
        throw ErrorIsSet();
    return made;
}

PyObject *convert(PyObject *self, PyObject *const *arguments, Py_ssize_t count, PyObject *names) {
    return guarded([&] {
        const ConvertArguments read = convertArguments(arguments, count, names);
        const Ref conversion = preparedOf(catalogueOf(self), read.from, read.to, read.quantity);
        return convertObject(reinterpret_cast<ConversionObject *>(conversion.get()), read.value, read.out);
    });
}

// _prepared(from_, to, quantity): the same conversion that convert() uses.
PyObject *prepared(PyObject *self, PyObject *arguments) {
    PyObject *from, *to, *quantity;
    if (!PyArg_ParseTuple(arguments, "OOO:_prepared", &from, &to, &quantity))
        return nullptr;
    return guarded([&] { return preparedOf(catalogueOf(self), from, to, quantity).release(); });
}

// --- questions

// _read(text, quantity) -> (value, scale, units, quantity)
PyObject *readEntry(PyObject *self, PyObject *arguments) {
    PyObject *typed, *quantity;
    if (!PyArg_ParseTuple(arguments, "OO:_read", &typed, &quantity))
        return nullptr;
    return guarded([&] {
        const char *const text = textOf(typed, "a quantity with its unit");
        const char *const classString = classTextOrNone(quantity);
        UomEntry entry;
        const int32_t status = within(catalogueOf(self), [&] { return uom_ReadEntry(classString, text, &entry); });
        if (status == UOM_NO_MEMORY)
            throw std::bad_alloc();
        if (status != UOM_DONE && classString)
            checkClass(catalogueOf(self), quantity);
        if (status != UOM_DONE)
            refuseEntry(typed, entry);
        return Py_BuildValue("ddNN", entry.value, entry.scale, pythonText(entry.units).release(),
                             pythonText(entry.classString).release());
    });
}

// _search(words, most) -> ["kind\tclass\ttoken\tdescription"]
PyObject *search(PyObject *self, PyObject *arguments) {
    PyObject *words;
    int most;
    if (!PyArg_ParseTuple(arguments, "Oi:_search", &words, &most))
        return nullptr;
    return guarded([&] {
        const char *const text = textOf(words, "what to search for");
        const uom::Table rows(within(catalogueOf(self), [&] { return uom_Search(text, most); }));
        if (!rows.get())
            throw std::bad_alloc();
        return pythonList(rows.texts()).release();
    });
}

// _choices(quantity): what an interface would offer.
PyObject *choices(PyObject *self, PyObject *quantity) {
    return guarded([&] {
        const char *const text = classTextOf(quantity);
        bool known = true;
        const uom::Table rows(within(catalogueOf(self), [&] {
            UomTable *const list = uom_GetChoices(text);
            known = list || uoms_IsClassValid(text) == 1;
            return list;
        }));
        if (!known) {
            checkClass(catalogueOf(self), quantity);
            refuse((uom::detail::quoted(text) + " is no quantity that is known here.").c_str(), quantity);
        }
        if (!rows.get())
            throw std::bad_alloc();
        return pythonList(rows.texts()).release();
    });
}

// _entry_classes(units): those that read them, best first.
PyObject *entryClasses(PyObject *self, PyObject *typed) {
    return guarded([&] {
        const char *const text = textOf(typed, "a unit");
        const uom::Table rows(within(catalogueOf(self), [&] { return uom_GetEntryClasses(text); }));
        if (!rows.get())
            throw std::bad_alloc();
        return pythonList(rows.texts()).release();
    });
}

// _units(quantity) -> [(units, description)] of a class with units of its own, else an empty list
PyObject *units(PyObject *self, PyObject *object) {
    return guarded([&] {
        const char *const name = textOf(object, "a quantity");
        const auto rows = within(catalogueOf(self), [&] {
            const int32_t classId = uom_GetClassType(name, UOM_STYLE_TOKEN);
            return classId != 0 && uom_IsClassBase(classId) ? uom::units(classId) : std::vector<uom::UnitEntry>();
        });
        return listOfRows(rows, [](const uom::UnitEntry &unit) {
            return Py_BuildValue("NN", pythonText(unit.token).release(), pythonText(unit.description).release());
        });
    });
}

// _classes() -> [(token, long name, keyword)]
PyObject *classes(PyObject *self, PyObject *) {
    return guarded([&] {
        const auto rows = within(catalogueOf(self), [] { return uom::classes(); });
        return listOfRows(rows, [](const uom::ClassEntry &entry) {
            return Py_BuildValue("NNN", pythonText(entry.token).release(), pythonText(entry.longName).release(),
                                 pythonText(entry.keyword).release());
        });
    });
}

// --- slates

// _slates() -> [(name, parent)]
PyObject *slates(PyObject *self, PyObject *) {
    return guarded([&] {
        const auto rows = within(catalogueOf(self), [] { return uom::slates(); });
        return listOfRows(rows, [](const uom::SlateEntry &entry) {
            return Py_BuildValue("NN", pythonText(entry.name).release(), pythonText(entry.parent).release());
        });
    });
}

// Methods of a slate and a quantity that answer a text.
template <uom::Result<std::string> (*ASK)(std::string_view, std::string_view)>
PyObject *textOfSlate(PyObject *self, PyObject *arguments) {
    PyObject *slate, *quantity;
    if (!PyArg_ParseTuple(arguments, "OO", &slate, &quantity))
        return nullptr;
    return guarded([&] {
        const char *const name = textOf(slate, "a slate"), *const classText = classTextOf(quantity);
        auto answer = within(catalogueOf(self), [&] { return ASK(name, classText); });
        if (!answer)
            checkClass(catalogueOf(self), quantity);
        return pythonText(std::move(answer).take()).release();
    });
}

uom::Result<std::string> displayUnits(std::string_view slate, std::string_view quantity) {
    return uom::tryDisplayUnits(quantity, slate);
}

// _state(slate, quantity, units): empty units withdraw what is stated.
PyObject *state(PyObject *self, PyObject *arguments) {
    PyObject *slate, *quantity, *unitText;
    if (!PyArg_ParseTuple(arguments, "OOO:_state", &slate, &quantity, &unitText))
        return nullptr;
    return guarded([&] {
        const char *const name = textOf(slate, "a slate"), *const classText = textOf(quantity, "a quantity");
        const char *const text = textOf(unitText, "a unit");
        return changing(self, [&] { uom::setDefault(name, classText, text); });
    });
}

// _new_slate(name, parent)
PyObject *newSlate(PyObject *self, PyObject *arguments) {
    PyObject *slate, *parent;
    if (!PyArg_ParseTuple(arguments, "OO:_new_slate", &slate, &parent))
        return nullptr;
    return guarded([&] {
        const char *const name = textOf(slate, "a slate"), *const parentName = textOf(parent, "a slate");
        return changing(self, [&] { uom::newSlate(name, parentName); });
    });
}

PyObject *origin(PyObject *self, void *) {
    return Py_NewRef(catalogueOf(self).origin);
}

int setOrigin(PyObject *self, PyObject *value, void *) {
    PyObject *const old = std::exchange(catalogueOf(self).origin, Py_XNewRef(value ? value : Py_None));
    Py_DECREF(old);
    return 0;
}

PyObject *isClosed(PyObject *self, void *) {
    return PyBool_FromLong(catalogueOf(self).catalogue == nullptr);
}

PyObject *preparedCount(PyObject *self, void *) {
    return PyLong_FromSsize_t(PyDict_GET_SIZE(catalogueOf(self).prepared));
}

PyDoc_STRVAR(
    convertDoc,
    "convert($self, values, from_, to, quantity=None, *, out=None)\n--\n\n"
    "Converts values from one unit to another.\n\n"
    "values     a number; a sequence; an array of real or whole numbers of any shape, strides and byte order;\n"
    "           a masked array; a pandas Series, DataFrame or Index; a Dask collection, lazily; whatever has\n"
    "           __array__. float32 stays float32, everything else becomes float64\n"
    "from_, to  units as people type them: \"kPag\", \"psi/100ft\", \"BTU/(hr ft2 F)\"\n"
    "quantity   a class string, \"Pres\" or \"Pres/VolRate 2\"; without one the units decide, and a UnitWarning\n"
    "           tells when they could mean something else as well\n"
    "out        an array of float64 or float32 of the same shape, which gets the results; it may be the input,\n"
    "           or overlap it\n\n"
    "Returns what it was given: a number for a number, an array of the same shape for an array or sequence, a\n"
    "Series with the same index for a Series; or `out`. NaN and values below -1e35 (no value) pass as they\n"
    "are. A result beyond the range is infinite, with a RuntimeWarning for an array as numpy.errstate says. The\n"
    "conversion is kept: the same texts cost no second reading.\n\n"
    "Raises UnitError for texts that are not understood and for units that don't convert into each other,\n"
    "TypeError for values that are no real numbers, ValueError for an `out` of another shape.");

PyMethodDef methods[] = {{"convert", reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(convert)),
                          METH_FASTCALL | METH_KEYWORDS, convertDoc},
                         {"_start", start, METH_VARARGS, nullptr},
                         {"_close", close, METH_NOARGS, nullptr},
                         {"_prepared", prepared, METH_VARARGS, nullptr},
                         {"_read", readEntry, METH_VARARGS, nullptr},
                         {"_search", search, METH_VARARGS, nullptr},
                         {"_choices", choices, METH_O, nullptr},
                         {"_entry_classes", entryClasses, METH_O, nullptr},
                         {"_units", units, METH_O, nullptr},
                         {"_classes", classes, METH_NOARGS, nullptr},
                         {"_slates", slates, METH_NOARGS, nullptr},
                         {"_display", textOfSlate<displayUnits>, METH_VARARGS, nullptr},
                         {"_stated", textOfSlate<uom::tryStatedDefault>, METH_VARARGS, nullptr},
                         {"_state", state, METH_VARARGS, nullptr},
                         {"_new_slate", newSlate, METH_VARARGS, nullptr},
                         {}};

PyGetSetDef properties[] = {{"_origin", origin, setOrigin, nullptr, nullptr},
                            {"closed", isClosed, nullptr, PyDoc_STR("Whether close() was called."), nullptr},
                            {"_prepared_count", preparedCount, nullptr, nullptr, nullptr},
                            {}};

PyType_Slot slots[] = {{Py_tp_new, reinterpret_cast<void *>(newCatalogue)},
                       {Py_tp_dealloc, reinterpret_cast<void *>(deallocate)},
                       {Py_tp_methods, methods},
                       {Py_tp_getset, properties},
                       {}};

} // namespace

PyType_Spec catalogueSpec = {"uom._core.Catalogue", sizeof(CatalogueObject), 0,
                             Py_TPFLAGS_DEFAULT | Py_TPFLAGS_BASETYPE, slots};

void makeReady(CatalogueObject &self) {
    if (!self.catalogue)
        refuseClosed();
    if (!self.started)
        checked(PyObject_CallMethod(reinterpret_cast<PyObject *>(&self), "_open", nullptr));
    if (!self.catalogue)
        refuseClosed();
}
