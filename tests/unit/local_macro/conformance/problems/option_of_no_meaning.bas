' There are four Options.
'? 3:8 Expected: Explicit, Base, Compare or Private
Option Strict
Sub main()
End Sub
