// The reader of the data file.
#ifndef UOM_CATALOGUE_DATA_FILE_H
#define UOM_CATALOGUE_DATA_FILE_H

#include <cstdint>

// The names of the application lists, in the order of uomListTables.
enum ApplicationList : int32_t {
    LIST_OX_TIME,
    LIST_OX_RATE_MASS,
    LIST_OX_RATE_MOLE,
    LIST_OX_RATE_LIQ_VOL,
    LIST_OX_RATE_VAP_VOL,
    LIST_OX_DENS_MASS,
    LIST_OX_DENS_LIQ_VOL,
    LIST_OX_DENS_MOLE,
    LIST_OX_DENS_VAP_VOL,
    LIST_OX_ENTHALPY_ENERGY,
    LIST_OX_ENTHALPY_MASS,
    LIST_OX_ENTHALPY_MOLE,
    LIST_DENS_PETRO_MASS,
    LIST_OX_LENGTH,
    LIST_OX_HEAT_CAP,
    LIST_KS_BASIS,
    LIST_OX_BASIS,
    LIST_OX_CAKERES_MASS,
    LIST_OX_CAKERES_LENGTH
};

// Reads the file into the catalogue: options, units, class lists, select lists, common lists, slates.
// REQUIRES: the unit table and the null slate exist; the flags are -1 or decided.
// Returns 0; 1 when the path names no regular file or cannot be read, 2 for a section keyword in a wrong place, 11 when
// memory is exhausted, each with a message. What was read before a failure stays.
int32_t uom_ReadDataFile(const char *path);

// Writes the message of a data file that cannot be opened; 1.
int32_t data_RefuseFile(const char *path);

#endif
