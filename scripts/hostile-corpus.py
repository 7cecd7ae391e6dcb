#!/usr/bin/env python3
"""Writes the hostile corpus: documents of about the given size that push one
part of the library or of rixsax as hard as a response can, and the list of
rixsax runs that read them.

  scripts/hostile-corpus.py --size 1M --out /tmp/corpus

The output is deterministic: the same size gives the same bytes. DIR gets
one file per document and runs.txt, one run a line:

  CASE<TAB>FILE<TAB>ARGUMENTS (blank-separated, without --format)

Generic documents (deep nesting, unexpected siblings, truncated documents)
are read by every handler; the others by the handlers they aim at. Each run
is meant to be made in every output format (scripts/linear-bounds.py does).
"""

import argparse
import os
import sys

HANDLERS = ["failure", "string", "boolean", "string-list", "string-map", "string-list-map", "xml-string-list",
            "xml-string-map", "xml-string-list-map", "attribute", "object-attribute", "object-list",
            "relationship-list", "structure", "object-details", "lock-unlock", "overwrite-file-list",
            "collection-list", "custom-query", "saved-query", "template-list", "ui-element", "workspace-list",
            "vault-list"]

HEAD = '<?xml version="1.0" encoding="UTF-8"?>\n'


def repeat(size, head, piece, tail):
    """head, then piece(i) for i = 0, 1, ... until about size bytes, then tail."""
    parts = [HEAD, head]
    total = len(HEAD) + len(head) + len(tail)
    i = 0
    while total < size:
        text = piece(i)
        parts.append(text)
        total += len(text)
        i += 1
    parts.append(tail)
    return "".join(parts)


def nested(size, name, text):
    """One element nested in itself as deep as the size allows."""
    level = "<%s>%s" % (name, text)
    count = max(1, (size - 64) // (len(level) + len(name) + 3))
    return HEAD + "<r>" + level * count + ("</%s>" % name) * count + "</r>\n"


def documents(size):
    """name -> (text, [(case, arguments)])"""
    docs = {}
    every = lambda case, extra: [(case, extra + [h]) for h in HANDLERS]

    # Unexpected elements nested in each other, each with a little text: a
    # string handler hands its parent all the text so far at every level.
    docs["deep-nesting.xml"] = (nested(size, "x", "t"),
                                every("deep nesting, checks stop", []) +
                                every("deep nesting, checks go on", ["--on-check", "continue"]) +
                                [("deep nesting, items", ["--on-check", "continue", "--item", "x",
                                                          "xml-string-list"])])
    # Siblings that no handler expects, under every check answer.
    docs["siblings.xml"] = (repeat(size, "<r>", lambda i: "<unexpected%d a=\"%d\">t</unexpected%d>\n" % (i % 7, i, i % 7),
                                   "</r>\n"),
                            every("unexpected siblings, checks stop", []) +
                            every("unexpected siblings, checks go on", ["--on-check", "continue"]) +
                            every("unexpected siblings, parser stops", ["--on-check", "continue",
                                                                        "--stop-on-failure"]))
    # White space and text between the elements of lists.
    blanks = " " * 4000 + "\n"
    docs["blank-files.xml"] = (repeat(size, "<overwritefilelist>",
                                      lambda i: '%s<filedetails busid="b%d" filename="f%d.prt"/>' % (blanks, i, i),
                                      "</overwritefilelist>\n"),
                               [("blanks between files", ["overwrite-file-list"])])
    docs["blank-items.xml"] = (repeat(size, "<vaults>", lambda i: "%s text %d %s<vault>v%d</vault>" % (blanks, i, blanks, i),
                                      "</vaults>\n"),
                               [("blanks between items", ["--item", "vault", "xml-string-list"])])
    docs["blank-rows.xml"] = (repeat(size, "<queryresult>",
                                     lambda i: "%s<row><name>c%d</name>%s<description>d</description></row>" % (blanks, i, blanks),
                                     "</queryresult>\n"),
                              [("blanks between rows", ["collection-list"])])
    # One huge attribute value, one huge text in one-byte pieces (each
    # character reference is an event of its own).
    docs["huge-attribute.xml"] = (HEAD + '<cadobject type="part" name="' + "n" * max(1, size - 200) + '"/>\n',
                                  [("huge attribute", ["object-attribute"]), ("huge attribute", ["object-list"])])
    docs["one-byte-pieces.xml"] = (repeat(size, "<r><message>", lambda i: "a&#98;", "</message></r>\n"),
                                   [("text in one-byte pieces", ["--at", "message", "string"]),
                                    ("text in one-byte pieces", ["--at", "message", "string-list"])])
    docs["many-attributes.xml"] = (repeat(size, '<objectlist><cadobject type="part" name="p" ',
                                          lambda i: 'a%d="v" ' % i, "/></objectlist>\n"),
                                   [("many attributes", ["object-list"]),
                                    ("many attributes", ["--at", "cadobject", "object-attribute"])])
    # Maps and lists with many distinct keys.
    docs["delimited-map.xml"] = (repeat(size, "<p>", lambda i: "key%d=value%d;" % (i, i), "</p>\n"),
                                 [("distinct keys, delimited", ["string-map"]),
                                  ("distinct keys, delimited", ["string-list-map"]),
                                  ("distinct keys, delimited", ["string-list"])])
    docs["xml-map.xml"] = (repeat(size, "<attributes>",
                                  lambda i: "<attribute><name>k%d</name><value>v%d</value></attribute>" % (i, i),
                                  "</attributes>\n"),
                           [("distinct keys, XML", ["xml-string-map"]), ("distinct keys, XML", ["xml-string-list-map"])])
    docs["key-value-map.xml"] = (repeat(size, "<settings>", lambda i: "<key>k%d</key><val>v%d</val>" % (i, i),
                                        "</settings>\n"),
                                 [("distinct keys, key and value", ["--key", "key", "--value", "val",
                                                                    "xml-string-map"])])
    docs["collections.xml"] = (repeat(size, "<queryresult>",
                                      lambda i: "<row><name>c%d</name><description>d</description></row>" % i,
                                      "</queryresult>\n"),
                               [("distinct keys, collections", ["collection-list"])])
    # Repeated ids in every list that has one.
    docs["repeated-objects.xml"] = (repeat(size, "<objectlist>",
                                           lambda i: '<cadobject cadid="c-1" type="part" name="p" zqversion="A.%d"><State>s</State></cadobject>' % (i % 3),
                                           "</objectlist>\n"),
                                    [("repeated ids, objects", ["object-list"])])
    docs["repeated-details.xml"] = (repeat(size, "<objectdetails>",
                                           lambda i: '<cadobject type="part" name="p" zqrevision="A" zqversion="A.1" oid="o"/>',
                                           "</objectdetails>\n"),
                                    [("repeated ids, details", ["object-details"]),
                                     ("repeated ids, details", ["lock-unlock"])])
    docs["repeated-relationships.xml"] = (repeat(size, "<relationshiplist>",
                                                 lambda i: '<relationship rid="r-1" cadrelationship="assembly"/>',
                                                 "</relationshiplist>\n"),
                                          [("repeated ids, relationships", ["relationship-list"])])
    docs["repeated-structure.xml"] = (repeat(size, '<structure><cadobject cadid="c-1">',
                                             lambda i: '<cadobject cadid="c-2"><relationship rid="r-1"/></cadobject>',
                                             "</cadobject></structure>\n"),
                                      [("repeated ids, structure", ["structure"])])
    docs["repeated-rows.xml"] = (repeat(size, "<queryresult>",
                                        lambda i: '<row rowid="1" oid="o1" parentid="p" name="n" revision="-" type="t" cadtype="part"><filename>f</filename><name>m</name><issystem>true</issystem></row>',
                                        "</queryresult>\n"),
                                 [("repeated ids, rows", [h]) for h in ["custom-query", "template-list", "ui-element",
                                                                        "workspace-list", "vault-list",
                                                                        "collection-list"]])
    docs["repeated-criteria.xml"] = (repeat(size, "<savedquery><name>q</name><criteria>",
                                            lambda i: '<property name="p">v</property><name>n</name>',
                                            "</criteria></savedquery>\n"),
                                     [("repeated ids, saved query", ["saved-query"])])
    # A document of every family cut short.
    body = repeat(size, "<objectlist>", lambda i: '<cadobject type="part" name="p%d"><State>s</State></cadobject>' % i, "")
    docs["truncated.xml"] = (body[: len(body) - 7], every("truncated", []))
    return docs


def parse_size(text):
    units = {"K": 1 << 10, "M": 1 << 20, "G": 1 << 30}
    if text[-1].upper() in units:
        return int(float(text[:-1]) * units[text[-1].upper()])
    return int(text)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--size", required=True, help="size of each document: bytes, or with K, M or G")
    parser.add_argument("--out", required=True, help="directory to write")
    options = parser.parse_args()
    size = parse_size(options.size)
    os.makedirs(options.out, exist_ok=True)
    lines = []
    for name, (text, runs) in documents(size).items():
        with open(os.path.join(options.out, name), "w", encoding="utf-8") as f:
            f.write(text)
        for case, arguments in runs:
            lines.append("%s\t%s\t%s\n" % (case, name, " ".join(arguments)))
    with open(os.path.join(options.out, "runs.txt"), "w") as f:
        f.writelines(lines)
    return 0


if __name__ == "__main__":
    sys.exit(main())
