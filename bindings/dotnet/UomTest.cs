// Calls of Uom.cs with answers worked out by hand. Argument: the data file.
using System;
using System.IO;
using System.Linq;
using System.Threading;
using Uom;

static class UomTest
{
    static int failures = 0;

    static void Is(string what, object expected, object found)
    {
        if (Equals(expected, found))
            return;
        ++failures;
        Console.WriteLine("FAILED: {0}\n  expected: {1}\n  found:    {2}", what, expected, found);
    }

    static void Near(string what, double expected, double found) =>
        Is(what, true, Math.Abs(found - expected) <= 1e-12 * Math.Abs(expected));

    static T Thrown<T>(string what, Action action) where T : Exception
    {
        try
        {
            action();
        }
        catch (T exception)
        {
            return exception;
        }
        Is(what, typeof(T).Name, "nothing thrown");
        return null;
    }

    static void Typed()
    {
        Near("psia", (250 + 101.325) / 6.894757293168361, Units.Convert("250 kPag", "psia"));
        Near("a number in the unit", 0.0254 * 24, Units.Convert("24 in", "m"));
        Near("a difference", 100, Units.Convert("180 F", "C", "TempDiff"));
        var entry = Units.Read("5 psi/100ft");
        Is("value", 5.0, entry.Value);
        Is("scale", 0.01, entry.Scale);
        Is("a unit alone", null, Units.Read("m³/h").Value);
        var refusal = Thrown<UomException>("no unit", () => Units.Read("5 kPs"));
        Is("status", 1, refusal.Status);
        Is("suggestion", "5 kPa", refusal.Suggestion);
        Is("place", "2 3", refusal.Position + " " + refusal.Length);
        Is("message", "\"kPs\" is no unit that is known here.", refusal.Message);
        Is("class", 2, Thrown<UomException>("no class", () => Conversion.FromUnits("Nope", "m", "ft")).Status);
        Is("a null text", 1, Thrown<UomException>("null", () => Units.Read(null)).Status);
        Is("choices", true, Units.Choices("Temp").Contains("K"));
        Is("classes", "Pres", Units.ClassesOf("kPag")[0]);
        Is("search", "Pres kPag", string.Join(" ", Units.Search("kPag", 1).Select(f => f.ClassString + " " + f.Token)));
        Thrown<UomException>("no choices", () => Units.Choices("Nope"));
        Units.ReadAliases("pencil = 7 in\n");
        Near("alias", 0.1778, Units.Convert("pencil", "m"));
    }

    static void Prepared()
    {
        using (var conversion = Conversion.FromEntries(null, "F", "C"))
        {
            Is("note", true, conversion.Note.Contains("TempDiff"));
            var values = new double[] { 32, 212, -40, 9 };
            conversion.Convert(values.AsSpan(0, 3));
            Is("in place", "0 100 -40 9", string.Join(" ", values.Select(v => Math.Round(v, 9).ToString("R"))));
            var floats = new float[] { 32, 212 };
            var results = new float[2];
            conversion.Convert(floats, results);
            Is("floats", "0 100", string.Join(" ", results));
            Thrown<ArgumentException>("no room", () => conversion.Convert(new double[3], new double[2]));
            Thrown<ArgumentException>("overlap", () => conversion.Convert(values.AsSpan(0, 3), values.AsSpan(1, 3)));
            conversion.Convert(new double[0]);
            var (factor, offset) = conversion.Constants;
            Near("factor", 5.0 / 9.0, factor);
            Near("offset", -32, offset);
            conversion.Dispose();
            Thrown<ObjectDisposedException>("disposed", () => conversion.Convert(1.0));
        }
        using (var gravity = Conversion.FromUnits("PetroDensity", "API", "kg/m3"))
            Thrown<UomException>("not linear", () => gravity.Constants.ToString());
    }

    // Two sites with two atmospheric pressures, each on a thread.
    static void Catalogues(string data)
    {
        var found = new double[2];
        var threads = new[] { "101.325", "83.5" }.Select((pressure, i) => new Thread(() => {
            using (var site = new Catalogue())
            {
                site.StartText(data);
                site.SetDefault("Current", "GaugePresBasis", pressure);
                using (site.Use())
                    found[i] = Units.Convert("250 kPag", "kPa");
            }
        })).ToList();
        threads.ForEach(thread => thread.Start());
        threads.ForEach(thread => thread.Join());
        Near("harbour", 351.325, found[0]);
        Near("mine", 333.5, found[1]);
        var none = new Catalogue();
        Is("no file", 1, Thrown<UomException>("no file", () => none.StartFile("nosuch/Größe.txt")).Status);
        Is("the path", true, Thrown<UomException>("no file", () => none.StartFile("nosuch/Größe.txt")).Message.Contains("Größe"));
        none.Dispose();
        for (int i = 0; i < 20000; ++i)
            Conversion.FromUnits("Leng", "ft", "m"); // the finalizers free them
        GC.Collect();
        GC.WaitForPendingFinalizers();
    }

    static int Main(string[] words)
    {
        Catalogue.Default.StartFile(words[0]);
        Is("version", 3, Units.Version.Split('.').Length);
        Typed();
        Prepared();
        Catalogues(File.ReadAllText(words[0]));
        Catalogue.Default.End();
        Catalogue.Default.Start();
        Near("from the file that is found", 0.3048, Units.Convert("1 ft", "m"));
        Console.WriteLine(failures == 0 ? "passed" : failures + " failed");
        return failures == 0 ? 0 : 1;
    }
}
