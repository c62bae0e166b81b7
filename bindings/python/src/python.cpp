#include "python.h"

#include <cstring>

Lent lent;

Ref checked(PyObject *owned) {
    if (!owned)
        throw ErrorIsSet();
    return Ref(owned);
}

namespace {

// Sets UnitError(message, text, position, length, suggestion).
[[noreturn]] void raiseUnitError(Ref message, PyObject *typed, Py_ssize_t position, Py_ssize_t length,
                                 std::string_view suggestion) {
    const Ref hint = pythonText(suggestion);
    const Ref error =
        checked(PyObject_CallFunction(lent.unitError, "OOnnO", message.get(), typed, position, length, hint.get()));
    PyErr_SetObject(lent.unitError, error.get());
    throw ErrorIsSet();
}

// A surrogate can't be said in UTF-8: the codec's error becomes one of ours, at the same place.
[[noreturn]] void refuseCharacter(PyObject *object) {
    if (!PyErr_ExceptionMatches(PyExc_UnicodeEncodeError))
        throw ErrorIsSet();
    PyErr_Clear();
    Py_ssize_t place = 0;
    while (place < PyUnicode_GET_LENGTH(object) && !Py_UNICODE_IS_SURROGATE(PyUnicode_READ_CHAR(object, place)))
        ++place;
    raiseUnitError(checked(PyUnicode_FromFormat("Character %zd is half of a surrogate pair and no character.", place)),
                   object, place, 1, "");
}

// Characters in so many bytes of UTF-8.
Py_ssize_t characters(std::string_view bytes) {
    Py_ssize_t count = 0;
    for (const char byte : bytes)
        count += (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
    return count;
}

} // namespace

const char *textOf(PyObject *object, const char *what) {
    if (!PyUnicode_Check(object)) {
        PyErr_Format(PyExc_TypeError, "%s is a text, not %.100s", what, Py_TYPE(object)->tp_name);
        throw ErrorIsSet();
    }
    Py_ssize_t size = 0;
    const char *text = PyUnicode_AsUTF8AndSize(object, &size);
    if (!text)
        refuseCharacter(object);
    if (const size_t end = std::strlen(text); end < static_cast<size_t>(size)) {
        const Py_ssize_t place = characters({text, end});
        raiseUnitError(checked(PyUnicode_FromFormat("Character %zd is a zero character.", place)), object, place, 1,
                       "");
    }
    return text;
}

const char *classTextOf(PyObject *object) {
    const char *const text = textOf(object, "a quantity");
    if (!*text)
        refuse("The quantity is an empty text: without one it is None, and the units decide.", object);
    for (const char *slash = std::strchr(text, '/'); slash; slash = std::strchr(slash + 1, '/')) {
        const char behind = slash[1 + std::strspn(slash + 1, " \t")];
        if (behind == '\0' || behind == '/')
            raiseUnitError(checked(PyUnicode_FromFormat("A \"/\" of \"%U\" has no class behind it.", object)), object,
                           characters({text, static_cast<size_t>(slash - text)}), 1, "");
    }
    return text;
}

const char *classTextOrNone(PyObject *object) {
    return object == Py_None ? nullptr : classTextOf(object);
}

Ref pythonText(std::string_view text) {
    const auto size = static_cast<Py_ssize_t>(text.size());
    if (PyObject *decoded = PyUnicode_DecodeUTF8(text.data(), size, nullptr))
        return Ref(decoded);
    PyErr_Clear();
    return checked(PyUnicode_DecodeLatin1(text.data(), size, nullptr));
}

Ref pythonMessage(std::string_view text) {
    return checked(PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "replace"));
}

Ref pythonList(const std::vector<std::string> &texts) {
    Ref list = checked(PyList_New(static_cast<Py_ssize_t>(texts.size())));
    for (size_t i = 0; i < texts.size(); ++i)
        PyList_SET_ITEM(list.get(), static_cast<Py_ssize_t>(i), pythonText(texts[i]).release());
    return list;
}

void refuseEntry(PyObject *typed, const UomEntry &entry) {
    Py_ssize_t size = 0;
    const char *text = PyUnicode_AsUTF8AndSize(typed, &size);
    const std::string_view whole(text ? text : "", static_cast<size_t>(size));
    const std::string_view head = whole.substr(0, static_cast<size_t>(entry.position > 0 ? entry.position : 0));
    const std::string_view part = whole.substr(head.size(), static_cast<size_t>(entry.length > 0 ? entry.length : 0));
    const char *message = *entry.message ? entry.message : uom_GetLastErrorMessage();
    raiseUnitError(pythonMessage(message), typed, characters(head), characters(part), entry.suggestion);
}

void setUnitError(const char *message) {
    if (PyObject *text = PyUnicode_DecodeUTF8(message, static_cast<Py_ssize_t>(std::strlen(message)), "replace")) {
        PyErr_SetObject(lent.unitError, text);
        Py_DECREF(text);
    }
}

void refuse(const char *message, PyObject *typed) {
    raiseUnitError(pythonMessage(message), typed, 0, 0, "");
}
