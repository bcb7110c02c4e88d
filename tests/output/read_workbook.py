"""Prints what workbooks hold, one fact a line ("STEM KEY", tab, tab-separated fields), for the
output tests. Cells through openpyxl; charts and drawings, which openpyxl does not load, from the zip."""
import sys
import xml.etree.ElementTree as ET
import zipfile

import openpyxl
from openpyxl.utils import get_column_letter

C = "{http://schemas.openxmlformats.org/drawingml/2006/chart}"
XDR = "{http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing}"
T = "{http://schemas.openxmlformats.org/drawingml/2006/main}t"


def rgb(c):
    return c.rgb[-6:] if c is not None and isinstance(c.rgb, str) else "-"


def text(e):
    return "" if e is None else "".join(t.text or "" for t in e.iter(T))


for path in sys.argv[1:]:
    def say(key, *fields):
        print(f"{path.split('/')[-1][:-5]} {key}\t" + "\t".join(map(str, fields)))

    for ws in openpyxl.load_workbook(path).worksheets:
        say(f"sheet {ws.title}", ws.sheet_state)
        say(f"merged {ws.title}", " ".join(sorted(map(str, ws.merged_cells.ranges))))
        for cell in (c for row in ws.iter_rows() for c in row if c.value is not None or c.fill.fill_type):
            v = cell.value.date().isoformat() if hasattr(cell.value, "date") else cell.value
            fill = rgb(cell.fill.fgColor) if cell.fill.fill_type == "solid" else "-"
            say(f"cell {ws.title}!{cell.coordinate}", f"v={v}", f"f={cell.number_format}", f"b={int(bool(cell.font.b))}",
                f"c={rgb(cell.font.color)}", f"fill={fill}", f"h={cell.alignment.horizontal}")

    z = zipfile.ZipFile(path)
    names = z.namelist()
    say("media", sum(n.startswith("xl/media/") for n in names))
    for name in sorted(n for n in names if n.startswith("xl/charts/chart")):
        chart = ET.fromstring(z.read(name)).find(C + "chart")
        plot = chart.find(C + "plotArea")
        kind = next(e for e in plot if e.tag.endswith("Chart"))
        group = kind.find(C + "grouping")
        series = kind.findall(C + "ser")
        cats = next(e for e in series[0] if e.tag in (C + "cat", C + "xVal"))
        # The points a series has values for: a null point is missing.
        points = [f"s{i}=" + ",".join(p.get("idx") for p in s.find(C + "val").iter(C + "pt"))
                  for i, s in enumerate(series) if s.find(C + "val") is not None]
        say(name[10:-4], f"type={kind.tag[len(C):]}" + ("" if group is None else "/" + group.get("val")),
            f"series={len(series)}", "cats=" + ",".join(v.text for v in cats.iter(C + "v")),
            f"legend={int(chart.find(C + 'legend') is not None)}",
            "axes=" + "|".join(text(a.find(C + "title")) for a in plot if a.tag in (C + "catAx", C + "valAx")),
            *points)

    # Where each picture or chart of drawingN is anchored, numbered in drawing order.
    for name in sorted(n for n in names if n.startswith("xl/drawings/drawing")):
        for i, anchor in enumerate(ET.fromstring(z.read(name)), 1):
            at = anchor.find(XDR + "from")
            cell = get_column_letter(int(at.find(XDR + "col").text) + 1) + str(int(at.find(XDR + "row").text) + 1)
            say(f"anchor {name[12:-4]} {i}", "picture" if anchor.find(XDR + "graphicFrame") is None else "chart", cell)
