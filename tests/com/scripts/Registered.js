// The registered control without a form: creation by name, appearance, error numbers, Fire.
function say() {
    WScript.Echo(Array.prototype.slice.call(arguments).join(", "));
}

function numberOf(action) {
    try {
        action();
        return 0;
    } catch (e) {
        return e.number & 0xFFFF;
    }
}

var fis = new ActiveXObject("QuorvaneAxEditor.FISControl");
say(fis.Caption, fis.Enabled, fis.BackColor, fis.ForeColor);
fis.Caption = "Cooling";
fis.Enabled = false;
fis.BackColor = 0xFF00;
say(fis.Caption, fis.Enabled, fis.BackColor, fis.ForeColor);
fis.Font.Bold = true;
say(fis.Font.Bold);

fis.Refresh();
fis.Fire();
fis.DataShow = true;
fis.Fire();
say("fired");
say(fis.InVals === null);

say(numberOf(function () { fis.Inputs = "x"; }));
say(numberOf(function () { fis.Rules = "x"; }));
say(numberOf(function () { fis.NoSuchMember(); }));
try {
    fis.DefOutVals = new ActiveXObject("Scripting.Dictionary");
} catch (e) {
    say(e.number, e.description);
}
say("DONE");
