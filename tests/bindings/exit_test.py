"""Ends the interpreter with 1,000 objects of the library, in random order, while a thread still closes
some of them. usage: exit_test.py SEED"""
import random
import sys
import threading

import quillkit
from quillkit.keys import ItemHandle

random.seed(int(sys.argv[1]))
box = quillkit.Session("127.0.0.1", "ADMINISTRATOR", "quill")
keys = box.keys
MAKERS = [lambda: box.email, box.view, lambda: ItemHandle(quillkit.load(), quillkit.Item("x")),
          lambda: keys._named("x").thing]
objects = [random.choice(MAKERS)() for _ in range(1000)]
for each in objects[:300]:
    each.itself = each  # only the collector of cycles can end it
box.close()
random.shuffle(objects)
del objects[:random.randrange(300)]
closed = objects[:300]
threading.Thread(target=lambda: [each.close() for each in closed * 100], daemon=True).start()
