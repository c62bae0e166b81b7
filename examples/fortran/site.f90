! A site's slate from Fortran: start, a slate of its own, defaults, arrays, display units. The path of the data
! file may be the first argument. Stops with 1 when a number or text is wrong.
program site
    use, intrinsic :: iso_fortran_env, only: real64, error_unit
    use uom
    implicit none

    integer :: failures = 0

    call start()

    call expect_status("slate Site", merge(0, 1, uom_new_slate("Site") > 0))
    call expect_status("Site as Metric", uom_initialize_slate("Site", "Metric"))
    call expect_status("pressures of Site", uom_set_default("Site", "Pres", "barg"))
    call expect_status("mass rates of Site", uom_set_default("Site", "MassRate", "k*kg/hr"))

    call expect_text("Pres in Site", uom_display_units("Pres", "Site"), "barg")
    call expect_text("PresDiff follows", uom_display_units("PresDiff", "Site"), "bar")
    call expect_text("MassRate in Site", uom_display_units("MassRate", "Site"), "k*kg/hr")

    call pressures()
    call gravities()
    call constants()

    call uom_stop()
    if (failures > 0) stop 1

contains

    subroutine start()
        character(len=512) :: path
        integer :: status
        if (command_argument_count() > 0) then
            call get_command_argument(1, path)
            status = uom_start(path)
        else
            status = uom_start()
        end if
        if (status == 0) return
        write (error_unit, "(a)") uom_message()
        stop 1
    end subroutine

    subroutine expect_status(title, status)
        character(len=*), intent(in) :: title
        integer, intent(in) :: status
        if (status == 0) return
        print "(a, ': ', i0, ' ', a)", title, status, uom_message()
        failures = failures + 1
    end subroutine

    subroutine expect_text(title, text, expected)
        character(len=*), intent(in) :: title, text, expected
        print "(a, t32, a)", title, trim(text)
        if (text == expected) return
        print "('    expected ', a)", expected
        failures = failures + 1
    end subroutine

    subroutine expect_number(title, value, expected)
        character(len=*), intent(in) :: title
        real(real64), intent(in) :: value, expected
        print "(a, t32, f0.4)", title, value
        if (abs(value / expected - 1) < 1e-6_real64) return
        print "('    expected ', f0.4)", expected
        failures = failures + 1
    end subroutine

    ! Gauge pressures hang on the atmospheric pressure of the slate Current.
    subroutine pressures()
        real(real64) :: values(3)
        values = [0.0_real64, 1.0_real64, 2.5_real64]
        call uom_convert(values, "Pres", "barg", "kPa")
        call expect_number("2.5 barg at sea level, kPa", values(3), 351.325_real64)

        call expect_status("1600 m", uom_set_default("Current", "GaugePresBasis", "83.5"))
        values = [0.0_real64, 1.0_real64, 2.5_real64]
        call uom_convert(values, "Pres", "Site", "SI")
        call expect_number("0 barg at the site, kPa", values(1), 83.5_real64)
        call expect_number("2.5 barg at the site, kPa", values(3), 333.5_real64)
    end subroutine

    subroutine gravities()
        real(real64) :: values(2)
        values = [10.0_real64, 35.0_real64]
        call uom_convert(values, "PetroDensity", "API", "kg/m3")
        call expect_number("35 API, kg/m3", values(2), 849.013598_real64)
    end subroutine

    subroutine constants()
        real(real64) :: factor, offset
        call expect_status("F to C", uom_constants("Temp", "F", "C", factor, offset))
        call expect_number("212 F, C", (212 + offset) * factor, 100.0_real64)
        if (uom_constants("PetroDensity", "API", "kg/m3", factor, offset) == 0) failures = failures + 1
    end subroutine

end program
