// Units of measure for .NET hosts: the front door of the library and its prepared conversions, in one file.
//
//     Catalogue.Default.Start();
//     double psia = Units.Convert("250 kPag", "psia");
//     using (var toPascal = Conversion.FromEntries("Pres", "kPag", "Pa"))
//         toPascal.Convert(measured, converted);
//
// The native library is "uom": uom.dll, libuom.so, by the search path of the system or beside the program. Texts are
// UTF-8 on the way in and out. A failure is a UomException, with the status and the message of the library.
//
// Threads. Each has a catalogue in use, the default one until it says otherwise. Whatever reads may run on any number of
// threads at once; Start, End, ReadAliases and Dispose want nothing else in their catalogue meanwhile. A Conversion looks
// at no catalogue and serves any number of threads.
using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;
using System.Text;

namespace Uom
{
    // What the library refused. Position and Length are bytes of the typed text that the message is about, as far as
    // there is one; Suggestion a text that would be read, or empty.
    public sealed class UomException : Exception
    {
        public int Status { get; }
        public int Position { get; }
        public int Length { get; }
        public string Suggestion { get; } = "";

        internal UomException(int status, string message) : base(message)
        {
            Status = status;
        }

        internal UomException(int status, string message, in NativeEntry entry) : base(message)
        {
            Status = status;
            Position = entry.Position;
            Length = entry.Length;
            Suggestion = entry.SuggestionText;
        }
    }

    // What was read from a typed text: a number, if there was one, and its unit.
    public sealed class Entry
    {
        public double? Value { get; }
        public string ClassString { get; } // the quantity: as given, or found
        public string Units { get; }       // the unit text of the catalogue
        public double Scale { get; }       // what one of the typed units is in those

        internal Entry(in NativeEntry entry)
        {
            Value = double.IsNaN(entry.Value) ? (double?)null : entry.Value;
            ClassString = entry.ClassText;
            Units = entry.UnitsText;
            Scale = entry.Scale;
        }
    }

    // A find of Units.Search: Kind is "class", "unit", "alias", "slate" or "text".
    public sealed class Find
    {
        public string Kind { get; }
        public string ClassString { get; }
        public string Token { get; }
        public string Description { get; }

        internal Find(string row)
        {
            var cells = row.Split('\t');
            Kind = cells[0];
            ClassString = cells.Length > 1 ? cells[1] : "";
            Token = cells.Length > 2 ? cells[2] : "";
            Description = cells.Length > 3 ? cells[3] : "";
        }
    }

    // What people type, in the catalogue in use.
    public static class Units
    {
        public static string Version => Native.TextOf(Native.uom_GetVersion());

        // Reads a number with a unit, or a unit alone; without a class, of the first class that reads it best.
        public static Entry Read(string text, string classString = null)
        {
            var entry = new NativeEntry();
            Native.Check(Native.uom_ReadEntry(Native.Bytes(classString), Native.Bytes(text), ref entry), ref entry);
            return new Entry(entry);
        }

        // Converts a number with a unit, "250 kPag"; a unit alone counts as 1.
        public static double Convert(string text, string to, string classString = null)
        {
            var entry = Read(text, classString);
            using (var conversion = Conversion.FromEntries(classString ?? entry.ClassString, entry.Units, to))
                return conversion.Convert((entry.Value ?? 1.0) * entry.Scale);
        }

        // The classes that read a text, best first.
        public static IReadOnlyList<string> ClassesOf(string text) =>
            Native.Rows(Native.uom_GetEntryClasses(Native.Bytes(text)));

        // Classes, units, aliases and slates by words, best first, at most so many.
        public static IReadOnlyList<Find> Search(string words, int most = 20)
        {
            var finds = new List<Find>();
            foreach (var row in Native.Rows(Native.uom_Search(Native.Bytes(words), most)))
                finds.Add(new Find(row));
            return finds;
        }

        // What a drop-down offers for a class or class string.
        public static IReadOnlyList<string> Choices(string classString) =>
            Native.Rows(Native.uom_GetChoices(Native.Bytes(classString)));

        // Adds aliases, "alias = unit text" a line, to the catalogue in use.
        public static void ReadAliases(string lines)
        {
            var text = Native.Bytes(lines);
            Native.Check(Native.uom_ReadAliasText(text, Native.SizeOf(text)));
        }
    }

    // All that a start reads and a host sets. Default is the one of the process; others are made, and freed by Dispose.
    public sealed class Catalogue : IDisposable
    {
        public static Catalogue Default { get; } = new Catalogue(new CatalogueHandle(false));

        private readonly CatalogueHandle handle;

        private Catalogue(CatalogueHandle handle)
        {
            this.handle = handle;
        }

        public Catalogue() : this(Native.uom_NewCatalogue())
        {
            if (handle.IsInvalid)
                throw new OutOfMemoryException();
        }

        // Starts with the data file that the library finds; words as "kesta" are the options of the library's start.
        public void Start(params string[] words)
        {
            if (words.Length == 0)
                InUse(() => Native.Check(Native.uom_Init()));
            else
                StartFile(DataFile, words);
        }

        public void StartFile(string path, params string[] words)
        {
            var all = new List<string>(words) { "-f", path };
            using (var native = new NativeWords(all))
                InUse(() => Native.Check(Native.uom_Init2(all.Count, native.Pointer)));
        }

        // From the text of a data file.
        public void StartText(string data, params string[] words)
        {
            var text = Native.Bytes(data);
            using (var native = new NativeWords(words))
                InUse(() => Native.Check(
                          Native.uom_InitText(text, Native.SizeOf(text), words.Length, native.Pointer)));
        }

        public void End() => InUse(() => Native.uom_Cleanup());

        // States what a slate shows a class in, or a property: "Current", "GaugePresBasis", "83.5".
        public void SetDefault(string slate, string classString, string units)
        {
            InUse(() => Native.Check(Native.uoms_SetClassDefault(Native.Bytes(slate), Native.Bytes(classString),
                                                                 Native.Bytes(units))));
        }

        // The data file that Start would read.
        public static string DataFile
        {
            get {
                var path = new byte[1024];
                Native.Check(Native.uom_FindDataFile(path, path.Length));
                return Native.TextOf(path);
            }
        }

        // Makes it the one that the calling thread works on, until what this returns is disposed of, by that thread.
        public IDisposable Use() => new InUseScope(handle);

        public void Dispose()
        {
            if (this != Default)
                handle.Dispose();
        }

        private void InUse(Action action)
        {
            using (Use())
                action();
        }

        private sealed class InUseScope : IDisposable
        {
            private readonly CatalogueHandle handle; // kept from being freed meanwhile
            private readonly IntPtr before;
            private bool held;

            public InUseScope(CatalogueHandle handle)
            {
                this.handle = handle;
                handle.DangerousAddRef(ref held);
                before = Native.uom_UseCatalogue(handle.DangerousGetHandle());
            }

            public void Dispose()
            {
                if (!held)
                    return;
                held = false;
                Native.uom_UseCatalogue(before);
                handle.DangerousRelease();
            }
        }
    }

    // A conversion that is ready: it costs nothing but the arithmetic.
    public sealed class Conversion : IDisposable
    {
        private readonly ConversionHandle handle;

        // What could have been meant instead, and would convert in another way; empty as a rule.
        public string Note { get; } = "";

        private Conversion(ConversionHandle handle, string note = "")
        {
            this.handle = handle;
            Note = note;
        }

        // From typed units. A null class string: both texts decide.
        public static Conversion FromEntries(string classString, string from, string to)
        {
            var entry = new NativeEntry();
            var status = Native.uom_NewConversionFromEntries(Native.Bytes(classString), Native.Bytes(from),
                                                             Native.Bytes(to), out var made, ref entry);
            Native.Check(status, ref entry);
            return new Conversion(made, entry.MessageText);
        }

        // From unit texts of the catalogue, or names of slates.
        public static Conversion FromUnits(string classString, string from, string to)
        {
            Native.Check(Native.uoms_NewConversion(Native.Bytes(classString), Native.Bytes(from), Native.Bytes(to),
                                                   out var made));
            return new Conversion(made);
        }

        public double Convert(double value) => Native.uom_ConvertOne(handle, value);

        // The same span twice converts in place. Throws when `to` is shorter, or the spans overlap in another way.
        public unsafe void Convert(ReadOnlySpan<double> from, Span<double> to)
        {
            fixed (double* first = &MemoryMarshal.GetReference(from), second = &MemoryMarshal.GetReference(to))
            {
                RequireRoom(from.Length, to.Length, (byte*)first, (byte*)second, sizeof(double));
                Native.uom_ConvertMany(handle, first, second, (UIntPtr)from.Length);
            }
        }

        public unsafe void Convert(ReadOnlySpan<float> from, Span<float> to)
        {
            fixed (float* first = &MemoryMarshal.GetReference(from), second = &MemoryMarshal.GetReference(to))
            {
                RequireRoom(from.Length, to.Length, (byte*)first, (byte*)second, sizeof(float));
                Native.uom_ConvertManyFloat(handle, first, second, (UIntPtr)from.Length);
            }
        }

        public void Convert(Span<double> values) => Convert(values, values);
        public void Convert(Span<float> values) => Convert(values, values);

        // y = (x + Offset) * Factor; throws when the conversion is not linear.
        public (double Factor, double Offset) Constants
        {
            get {
                var status = Native.uom_GetConversionConstants(handle, out var factor, out var offset);
                if (status != 0)
                    throw new UomException(status, "The conversion is not linear.");
                return (factor, offset);
            }
        }

        public void Dispose() => handle.Dispose();

        private static unsafe void RequireRoom(int count, int room, byte* from, byte* to, int size)
        {
            if (room < count)
                throw new ArgumentException("There is no room for " + count + " values.", nameof(to));
            var apart = Math.Abs(to - from);
            if (apart != 0 && apart < (long)count * size)
                throw new ArgumentException("The values and their results overlap.", nameof(to));
        }
    }

    // --- the library as it is

    internal sealed class ConversionHandle : SafeHandle
    {
        public ConversionHandle() : base(IntPtr.Zero, true) {}
        public override bool IsInvalid => handle == IntPtr.Zero;
        protected override bool ReleaseHandle()
        {
            Native.uom_FreeConversion(handle);
            return true;
        }
    }

    // Null stands for the default catalogue, which nobody frees.
    internal sealed class CatalogueHandle : SafeHandle
    {
        public CatalogueHandle() : base(IntPtr.Zero, true) {}
        public CatalogueHandle(bool owned) : base(IntPtr.Zero, owned) {}
        public override bool IsInvalid => handle == IntPtr.Zero;
        protected override bool ReleaseHandle()
        {
            Native.uom_FreeCatalogue(handle);
            return true;
        }
    }

    internal sealed class TableHandle : SafeHandle
    {
        public TableHandle() : base(IntPtr.Zero, true) {}
        public override bool IsInvalid => handle == IntPtr.Zero;
        protected override bool ReleaseHandle()
        {
            Native.tbl_Free(handle);
            return true;
        }
    }

    // An array of words in memory that does not move.
    internal sealed class NativeWords : IDisposable
    {
        private readonly GCHandle[] pins;
        private readonly GCHandle array;

        public IntPtr Pointer => array.AddrOfPinnedObject();

        public NativeWords(IReadOnlyList<string> words)
        {
            pins = new GCHandle[words.Count];
            var addresses = new IntPtr[words.Count];
            for (int i = 0; i < pins.Length; ++i)
            {
                pins[i] = GCHandle.Alloc(Native.Bytes(words[i]), GCHandleType.Pinned);
                addresses[i] = pins[i].AddrOfPinnedObject();
            }
            array = GCHandle.Alloc(addresses, GCHandleType.Pinned);
        }

        public void Dispose()
        {
            foreach (var pin in pins)
                pin.Free();
            array.Free();
        }
    }

    // UomEntry.
    [StructLayout(LayoutKind.Sequential)]
    internal unsafe struct NativeEntry
    {
        public double Value;
        private fixed byte classString[128];
        private fixed byte units[256];
        public double Scale;
        public int Position, Length;
        private fixed byte message[256];
        private fixed byte suggestion[256];

        public string ClassText { get { fixed (byte* text = classString) return Native.TextOf((IntPtr)text); } }
        public string UnitsText { get { fixed (byte* text = units) return Native.TextOf((IntPtr)text); } }
        public string MessageText { get { fixed (byte* text = message) return Native.TextOf((IntPtr)text); } }
        public string SuggestionText { get { fixed (byte* text = suggestion) return Native.TextOf((IntPtr)text); } }
    }

    internal static class Native
    {
        private const string Library = "uom";
        private const CallingConvention C = CallingConvention.Cdecl;

        // A text as the library takes it: UTF-8 and a zero behind it.
        public static byte[] Bytes(string text) => text == null ? null : Encoding.UTF8.GetBytes(text + "\0");

        // Of such a text without the zero.
        public static UIntPtr SizeOf(byte[] text) => (UIntPtr)(text == null ? 0 : text.Length - 1);

        public static string TextOf(byte[] text)
        {
            var length = Array.IndexOf(text, (byte)0);
            return Decode(text, length < 0 ? text.Length : length);
        }

        public static string TextOf(IntPtr text)
        {
            if (text == IntPtr.Zero)
                return "";
            int length = 0;
            while (Marshal.ReadByte(text, length) != 0)
                ++length;
            var bytes = new byte[length];
            Marshal.Copy(text, bytes, 0, length);
            return Decode(bytes, length);
        }

        // The superscripts of the catalogue are Latin-1, all else is UTF-8.
        private static string Decode(byte[] text, int length)
        {
            try
            {
                return strict.GetString(text, 0, length);
            }
            catch (DecoderFallbackException)
            {
                return Encoding.GetEncoding(28591).GetString(text, 0, length);
            }
        }

        private static readonly Encoding strict = new UTF8Encoding(false, true);

        public static void Check(int status)
        {
            if (status != 0)
                throw new UomException(status, TextOf(uom_GetLastErrorMessage()));
        }

        public static void Check(int status, ref NativeEntry entry)
        {
            if (status == 0)
                return;
            var message = entry.MessageText;
            throw new UomException(status, message.Length > 0 ? message : TextOf(uom_GetLastErrorMessage()), entry);
        }

        public static IReadOnlyList<string> Rows(TableHandle table)
        {
            using (table)
            {
                if (table.IsInvalid)
                    throw new UomException(1, TextOf(uom_GetLastErrorMessage()));
                var rows = new List<string>();
                for (uint i = 0;; ++i)
                {
                    var text = tbl_GetText(table, i);
                    if (text == IntPtr.Zero)
                        return rows;
                    rows.Add(TextOf(text));
                }
            }
        }

        [DllImport(Library, CallingConvention = C)] public static extern IntPtr uom_GetVersion();
        [DllImport(Library, CallingConvention = C)] public static extern IntPtr uom_GetLastErrorMessage();
        [DllImport(Library, CallingConvention = C)] public static extern int uom_Init();
        [DllImport(Library, CallingConvention = C)] public static extern int uom_Init2(int count, IntPtr words);
        [DllImport(Library, CallingConvention = C)]
        public static extern int uom_InitText(byte[] text, UIntPtr length, int count, IntPtr words);
        [DllImport(Library, CallingConvention = C)] public static extern void uom_Cleanup();
        [DllImport(Library, CallingConvention = C)] public static extern int uom_FindDataFile(byte[] path, int size);
        [DllImport(Library, CallingConvention = C)]
        public static extern int uoms_SetClassDefault(byte[] slate, byte[] classString, byte[] units);

        [DllImport(Library, CallingConvention = C)] public static extern CatalogueHandle uom_NewCatalogue();
        [DllImport(Library, CallingConvention = C)] public static extern IntPtr uom_UseCatalogue(IntPtr catalogue);
        [DllImport(Library, CallingConvention = C)] public static extern void uom_FreeCatalogue(IntPtr catalogue);

        [DllImport(Library, CallingConvention = C)]
        public static extern int uom_ReadEntry(byte[] classString, byte[] text, ref NativeEntry entry);
        [DllImport(Library, CallingConvention = C)]
        public static extern int uom_NewConversionFromEntries(byte[] classString, byte[] from, byte[] to,
                                                              out ConversionHandle made, ref NativeEntry entry);
        [DllImport(Library, CallingConvention = C)] public static extern TableHandle uom_GetEntryClasses(byte[] text);
        [DllImport(Library, CallingConvention = C)] public static extern TableHandle uom_Search(byte[] words, int most);
        [DllImport(Library, CallingConvention = C)] public static extern TableHandle uom_GetChoices(byte[] classString);
        [DllImport(Library, CallingConvention = C)]
        public static extern int uom_ReadAliasText(byte[] text, UIntPtr length);

        [DllImport(Library, CallingConvention = C)]
        public static extern int uoms_NewConversion(byte[] classString, byte[] from, byte[] to,
                                                    out ConversionHandle made);
        [DllImport(Library, CallingConvention = C)] public static extern void uom_FreeConversion(IntPtr conversion);
        [DllImport(Library, CallingConvention = C)]
        public static extern double uom_ConvertOne(ConversionHandle conversion, double value);
        [DllImport(Library, CallingConvention = C)]
        public static extern unsafe void uom_ConvertMany(ConversionHandle conversion, double* from, double* to,
                                                         UIntPtr count);
        [DllImport(Library, CallingConvention = C)]
        public static extern unsafe void uom_ConvertManyFloat(ConversionHandle conversion, float* from, float* to,
                                                              UIntPtr count);
        [DllImport(Library, CallingConvention = C)]
        public static extern int uom_GetConversionConstants(ConversionHandle conversion, out double factor,
                                                            out double offset);

        [DllImport(Library, CallingConvention = C)] public static extern IntPtr tbl_GetText(TableHandle table, uint row);
        [DllImport(Library, CallingConvention = C)] public static extern void tbl_Free(IntPtr table);
    }
}
