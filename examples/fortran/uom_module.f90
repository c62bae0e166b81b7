! The library for programs in Fortran: interfaces of the blank-padded adapters and of start and end, and a
! few procedures that take Fortran's own texts.
!
! The adapters are part of the static library alone (link libuom.a). A text goes as its address and, right
! behind it and by value, its length; numbers go by address. Trailing blanks of a text do not count.
module uom
    use, intrinsic :: iso_c_binding
    implicit none
    private

    public :: uom_start, uom_stop, uom_message
    public :: uom_new_slate, uom_initialize_slate, uom_set_default, uom_delete_slate
    public :: uom_convert, uom_constants, uom_display_units

    interface
        function uom_Init() bind(c, name="uom_Init") result(status)
            import :: c_int32_t
            integer(c_int32_t) :: status
        end function

        function uom_Init2(count, words) bind(c, name="uom_Init2") result(status)
            import :: c_int32_t, c_ptr
            integer(c_int32_t), value :: count
            type(c_ptr), intent(in) :: words(*)
            integer(c_int32_t) :: status
        end function

        subroutine uom_Cleanup() bind(c, name="uom_Cleanup")
        end subroutine

        function uom_GetLastErrorMessage() bind(c, name="uom_GetLastErrorMessage") result(text)
            import :: c_ptr
            type(c_ptr) :: text
        end function

        function c_strlen(text) bind(c, name="strlen") result(length)
            import :: c_ptr, c_size_t
            type(c_ptr), value :: text
            integer(c_size_t) :: length
        end function

        function uom_NewSetFixed(name, name_length, index) bind(c, name="uom_NewSetFixed") result(same_index)
            import :: c_char, c_int32_t
            character(kind=c_char), intent(in) :: name(*)
            integer(c_int32_t), value :: name_length
            integer(c_int32_t), intent(out) :: index
            integer(c_int32_t) :: same_index
        end function

        subroutine uom_DeleteSetFixed(name, name_length, status) bind(c, name="uom_DeleteSetFixed")
            import :: c_char, c_int32_t
            character(kind=c_char), intent(in) :: name(*)
            integer(c_int32_t), value :: name_length
            integer(c_int32_t), intent(out) :: status
        end subroutine

        function uom_InitializeSetFixed(name, name_length, source, source_length, status) &
                bind(c, name="uom_InitializeSetFixed") result(same_status)
            import :: c_char, c_int32_t
            character(kind=c_char), intent(in) :: name(*), source(*)
            integer(c_int32_t), value :: name_length, source_length
            integer(c_int32_t), intent(out) :: status
            integer(c_int32_t) :: same_status
        end function

        function uoms_SetClassDefaultFixed(slate, slate_length, class, class_length, units, units_length, status) &
                bind(c, name="uoms_SetClassDefaultFixed") result(same_status)
            import :: c_char, c_int32_t
            character(kind=c_char), intent(in) :: slate(*), class(*), units(*)
            integer(c_int32_t), value :: slate_length, class_length, units_length
            integer(c_int32_t), intent(out) :: status
            integer(c_int32_t) :: same_status
        end function

        subroutine uoms_GetDisplayUnitsFixed(class, class_length, slate, slate_length, style, out, out_size) &
                bind(c, name="uoms_GetDisplayUnitsFixed")
            import :: c_char, c_int32_t
            character(kind=c_char), intent(in) :: class(*), slate(*)
            character(kind=c_char), intent(out) :: out(*)
            integer(c_int32_t), value :: class_length, slate_length, out_size
            integer(c_int32_t), intent(in) :: style
        end subroutine

        subroutine uoms_ConvertArrayFixed(count, values, class, class_length, from, from_length, to, to_length) &
                bind(c, name="uoms_ConvertArrayFixed")
            import :: c_char, c_double, c_int32_t
            integer(c_int32_t), intent(in) :: count
            real(c_double), intent(inout) :: values(*)
            character(kind=c_char), intent(in) :: class(*), from(*), to(*)
            integer(c_int32_t), value :: class_length, from_length, to_length
        end subroutine

        subroutine uoms_CalculateConvConstantsFixed(class, class_length, from, from_length, to, to_length, &
                status, factor, offset) bind(c, name="uoms_CalculateConvConstantsFixed")
            import :: c_char, c_double, c_int32_t
            character(kind=c_char), intent(in) :: class(*), from(*), to(*)
            integer(c_int32_t), value :: class_length, from_length, to_length
            integer(c_int32_t), intent(out) :: status
            real(c_double), intent(out) :: factor, offset
        end subroutine
    end interface

contains

    pure integer(c_int32_t) function length(text)
        character(len=*), intent(in) :: text
        length = int(len(text), c_int32_t)
    end function

    ! Starts the library, with the data file of this path when one is given; 0, or a status with a message.
    integer function uom_start(path) result(status)
        character(len=*), intent(in), optional :: path
        character(kind=c_char, len=:), allocatable, target :: option, file
        type(c_ptr) :: words(2)
        if (.not. present(path)) then
            status = uom_Init()
            return
        end if
        option = "-f" // c_null_char
        file = trim(path) // c_null_char
        words = [c_loc(option), c_loc(file)]
        status = uom_Init2(2_c_int32_t, words)
    end function

    subroutine uom_stop()
        call uom_Cleanup()
    end subroutine

    ! The text of the last failure.
    function uom_message() result(message)
        character(len=:), allocatable :: message
        type(c_ptr) :: address
        character(kind=c_char), pointer :: letters(:)
        integer :: i, n
        address = uom_GetLastErrorMessage()
        n = int(c_strlen(address))
        call c_f_pointer(address, letters, [n])
        allocate(character(len=n) :: message)
        do i = 1, n
            message(i:i) = letters(i)
        end do
    end function

    ! The index of a slate, new if there is none of this name.
    integer function uom_new_slate(name) result(slate)
        character(len=*), intent(in) :: name
        integer(c_int32_t) :: index
        slate = uom_NewSetFixed(name, length(name), index)
    end function

    ! Makes the slate state what the source states, and names the source as its parent. 0 or 1.
    integer function uom_initialize_slate(name, source) result(status)
        character(len=*), intent(in) :: name, source
        integer(c_int32_t) :: same
        status = uom_InitializeSetFixed(name, length(name), source, length(source), same)
    end function

    ! States the default of a class, or a property of the slate. 0, or a status with a message.
    integer function uom_set_default(slate, class, units) result(status)
        character(len=*), intent(in) :: slate, class, units
        integer(c_int32_t) :: same
        status = uoms_SetClassDefaultFixed(slate, length(slate), class, length(class), units, length(units), same)
    end function

    integer function uom_delete_slate(name) result(status)
        character(len=*), intent(in) :: name
        integer(c_int32_t) :: answer
        call uom_DeleteSetFixed(name, length(name), answer)
        status = answer
    end function

    ! Converts the values in place. The adapter has no status: values that stay as they were and a message
    ! tell of a class or units that are not understood.
    subroutine uom_convert(values, class, from, to)
        real(c_double), intent(inout) :: values(:)
        character(len=*), intent(in) :: class, from, to
        call uoms_ConvertArrayFixed(int(size(values), c_int32_t), values, class, length(class), &
            from, length(from), to, length(to))
    end subroutine

    ! y = (x + offset) * factor. 0, or -1 for texts that are not understood and a conversion that is not linear.
    integer function uom_constants(class, from, to, factor, offset) result(status)
        character(len=*), intent(in) :: class, from, to
        real(c_double), intent(out) :: factor, offset
        integer(c_int32_t) :: answer
        call uoms_CalculateConvConstantsFixed(class, length(class), from, length(from), to, length(to), &
            answer, factor, offset)
        status = answer
    end function

    ! The units in which a slate shows a class; blank for anything unknown.
    function uom_display_units(class, slate) result(units)
        character(len=*), intent(in) :: class, slate
        character(len=64) :: units
        integer(c_int32_t), parameter :: tokens = 1
        call uoms_GetDisplayUnitsFixed(class, length(class), slate, length(slate), tokens, units, &
            int(len(units), c_int32_t))
    end function

end module
