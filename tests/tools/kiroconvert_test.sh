#!/bin/bash
# Runs kiroconvert as a user does and lets another program, ezdxf, judge what it wrote.
#   kiroconvert_test.sh [EMULATOR...] KIROCONVERT
set -u
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
"$here/../../scripts/packages" python3-ezdxf || exit 1
tool=("$@")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
cp "$here/../../tools/demo/demo.dxf" .
failed=0
fail() { echo "FAILED: $*"; cat run.out run.err; failed=1; }
# run STATUS ARGUMENTS...
run() {
    local expected=$1
    shift
    "${tool[@]}" "$@" >run.out 2>run.err
    local status=$?
    [ $status = "$expected" ] || fail "status $status, not $expected: $*"
}
told() { grep -qF -- "$1" run.out run.err || fail "does not say: $1"; }

# A drawing with what the versions differ in: an image that no version is written with, a hatch, a light polyline.
/usr/bin/python3 - <<'PYTHON' || exit 1
import ezdxf
drawing = ezdxf.new("R2010", setup=True)
drawing.encoding = "cp932"
drawing.layers.new("壁", dxfattribs={"color": 3, "linetype": "DASHED", "lineweight": 35})
space = drawing.modelspace()
space.add_lwpolyline([(0, 0), (4, 0), (4, 3)], dxfattribs={"layer": "壁"})
space.add_line((0, 0), (1, 1), dxfattribs={"layer": "壁", "color": 1, "lineweight": 50, "linetype": "CENTER"})
space.add_text("図面", dxfattribs={"layer": "TEXT", "style": "OpenSans"})
space.add_mtext("二行\\P目", dxfattribs={"layer": "TEXT"})
space.add_spline([(0, 0), (1, 2), (3, 1)])
space.add_ellipse((0, 0), (2, 0), 0.5)
space.add_hatch(color=2).paths.add_polyline_path([(0, 0), (1, 0), (1, 1)])
block = drawing.blocks.new("扉")
block.add_circle((0, 0), 1)
block.add_attdef("TAG", (0, 0), "x")
space.add_blockref("扉", (5, 5)).add_attrib("TAG", "値", (5, 6))
space.add_linear_dim(base=(0, 2), p1=(0, 0), p2=(3, 0)).render()
space.add_image(drawing.add_image_def("none.png", (10, 10)), (0, 0), (1, 1))
drawing.layout("Layout1").add_line((0, 0), (9, 9), dxfattribs={"layer": "FRAME"})
drawing.saveas("rich.dxf")
PYTHON

for version in R13 R14 2000 2004 2007 2010 2013; do
    run 0 demo.dxf -o "demo-$version.dxf" --to $version
    run 1 rich.dxf -o "rich-$version.dxf" --to $version
    run 1 rich.dxf -o "richb-$version.dxf" --to $version --binary
    told "IMAGE"
done
mkdir tables out
printf 'LAYER 壁 = 5\nLAYER TEXT = 6\n' | iconv -f UTF-8 -t CP932 >tables/DXFKIRO_LAYER
printf 'PICTURE_OFF 257\nCLASS 5 = WALL\nCLASS 6 = TEXT\nCOLOR 3 = 30\n' >tables/KIRODXF_LAYER
printf 'LINE-FONT1 2 = CHAIN\n' >tables/KIRODXF_LINE
run 1 rich.dxf -o tables.dxf --tables tables --json
told '"layerByTable"'
run 1 '*.dxf' -o out --to 2000

/usr/bin/python3 - <<'PYTHON' || failed=1
import collections, glob, sys
import ezdxf
def items(drawing):
    return sorted((e.dxftype(), e.dxf.layer, e.dxf.color) for l in drawing.layouts for e in l if e.dxftype() != "VIEWPORT")
bad = False
def want(holds, *what):
    global bad
    if not holds:
        bad = True
        print("FAILED:", *what)
def dimension_font(drawing):
    return drawing.dimstyles.get("EZDXF").dxf.get("dimtxsty")
original = ezdxf.readfile("rich.dxf")
rich = items(original)
for name in sorted(glob.glob("rich*-*.dxf")) + sorted(glob.glob("demo-*.dxf")) + ["tables.dxf"]:
    drawing = ezdxf.readfile(name)
    audit = drawing.audit()
    want(not audit.errors and not audit.fixes, name, [e.message for e in audit.errors + audit.fixes])
    lost = {"IMAGE"} | ({"LWPOLYLINE", "HATCH"} if "R13" in name else set())
    if name.startswith("rich"):
        want(items(drawing) == [i for i in rich if i[0] not in lost], name, items(drawing))
        wall = drawing.layers.get("壁")
        want((wall.dxf.color, wall.dxf.linetype.upper()) == (3, "DASHED"), name, "layer")
        want([t.dxf.text for t in drawing.query("TEXT")] == ["図面"], name, "text")
        want([i.get_attrib_text("TAG") for i in drawing.query("INSERT") if i.dxf.name == "扉"] == ["値"], name, "attrib")
        want(dimension_font(drawing) == dimension_font(original), name, "dimension style")
        want(len(drawing.linetypes.get("CENTER").pattern_tags.tags) > 4, name, "pattern")
layers = {e[1] for e in items(ezdxf.readfile("tables.dxf"))}
patterns = [ezdxf.readfile(name).linetypes.get(type).pattern_tags.tags for name, type in (("rich.dxf", "DASHED"), ("tables.dxf", "CHAIN"))]
want([t for t in patterns[0] if t.code == 49] == [t for t in patterns[1] if t.code == 49], "tables.dxf", patterns)
want({"WALL", "TEXT"} <= layers and "壁" not in layers, "tables.dxf", layers)
want(len(glob.glob("out/*.dxf")) == len(glob.glob("*.dxf")), "out")
sys.exit(bad)
PYTHON

run 2 demo.dxf
run 2 demo.dxf -o x.dxf --to GX-3
told "GX-3"
run 2 demo.dxf -o demo.dxf
run 2 demo.dxf -o x.dwg
run 2 'none*.dxf' -o out
run 2 missing.dxf -o x.dxf
echo '{"importParams": {"layerConversoin": 1}}' >bad.json
run 2 demo.dxf -o x.dxf --params bad.json
told "layerConversoin"
head -c 300 demo.dxf >cut.dxf
echo old >kept.dxf
run 2 cut.dxf -o kept.dxf
told "途中で終わっています"
[ "$(cat kept.dxf)" = old ] || fail "a failed conversion touched its output"
[ ! -e x.dxf ] || fail "x.dxf was written"
exit $failed
