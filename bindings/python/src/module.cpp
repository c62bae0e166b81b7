// The extension: two types, and the place where the Python side registers what they need of it.
#include "catalogue.h"
#include "conversion.h"
#include "python.h"

PyTypeObject *conversionType, *catalogueType;

namespace {

PyObject *lend(PyObject *, PyObject *arguments) {
    Lent given = {};
    if (!PyArg_ParseTuple(arguments, "OOOOOO:lend", &given.unitError, &given.warn, &given.convertOther, &given.remake,
                          &given.inverse, &given.catalogue))
        return nullptr;
    for (PyObject *object :
         {given.unitError, given.warn, given.convertOther, given.remake, given.inverse, given.catalogue})
        Py_INCREF(object); // for the life of the process, as the types are
    lent = given;
    Py_RETURN_NONE;
}

PyObject *dataFile(PyObject *, PyObject *) {
    return guarded([] {
        const std::string path = uom::findDataFile();
        return checked(PyUnicode_DecodeFSDefaultAndSize(path.data(), static_cast<Py_ssize_t>(path.size()))).release();
    });
}

PyMethodDef functions[] = {{"lend", lend, METH_VARARGS, nullptr}, {"data_file", dataFile, METH_NOARGS, nullptr}, {}};

PyModuleDef definition = {
    PyModuleDef_HEAD_INIT, "uom._core", nullptr, -1, functions, nullptr, nullptr, nullptr, nullptr};

PyTypeObject *addType(PyObject *module, const char *name, PyType_Spec &description) {
    PyObject *const type = PyType_FromSpec(&description);
    if (!type || PyModule_AddObjectRef(module, name, type) != 0)
        return nullptr;
    return reinterpret_cast<PyTypeObject *>(type);
}

} // namespace

PyMODINIT_FUNC PyInit__core() {
    Ref module(PyModule_Create(&definition));
    if (!module)
        return nullptr;
    catalogueType = addType(module.get(), "Catalogue", catalogueSpec);
    conversionType = addType(module.get(), "Conversion", conversionSpec);
    if (!catalogueType || !conversionType || PyModule_AddStringConstant(module.get(), "version", uom_GetVersion()) != 0)
        return nullptr;
    return module.release();
}
