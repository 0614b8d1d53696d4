' A declared function is looked up when it is called, not before.
'> before
'! 453 Can't find DLL entry point Odd in strange.dll
Declare PtrSafe Function Odd Lib "strange.dll" () As Long
Sub main()
    Debug.Print "before"
    Debug.Print Odd()
End Sub
