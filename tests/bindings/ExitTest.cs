// Ends the program with 1,000 objects of the library, in random order, while a thread waits, another
// one still closes some of them and finalizers close others. usage: ExitTest.exe SEED
using System;
using System.Collections.Generic;
using System.Threading;
using Quillkit;

static class ExitTest
{
    static readonly List<Owned> objects = new List<Owned>();

    static void Linger(ManualResetEvent isIn)
    {
        var first = new Session("127.0.0.1", "ADMINISTRATOR", "quill");
        isIn.Set();
        first.Wait(TimeSpan.FromHours(1));
    }

    static void Main(string[] arguments)
    {
        var random = new Random(int.Parse(arguments[0]));
        var isIn = new ManualResetEvent(false);
        new Thread(() => Linger(isIn)) { IsBackground = true }.Start();
        isIn.WaitOne();
        using (var box = new Session("127.0.0.1", "ADMINISTRATOR", "quill"))
        {
            Keys keys = box.Keys;
            var makers = new Func<Owned>[] { () => box.Email, () => box.OpenView(),
                                             () => new ItemHandle(new Item()),
                                             () => new KeyHandle("x", keys.Handle) };
            for (int i = 0; i < 1000; ++i)
                objects.Insert(random.Next(objects.Count + 1), makers[random.Next(makers.Length)]());
        }
        objects.RemoveRange(0, random.Next(300));
        GC.Collect();
        Owned[] closed = objects.GetRange(0, 300).ToArray();
        new Thread(() => { foreach (Owned each in closed) each.Dispose(); }) { IsBackground = true }.Start();
    }
}
