"""The landscape behind each product's name; every scene gives (defs, body), back to front.

The left third lies under the medallion and the name and is kept calm; the story is told from x = 250 on.
"""
