' An exported module has lines that begin with Attribute, which are no part of the program.
'> ran
Attribute VB_Name = "Module1"
Sub main()
Attribute main.VB_Description = "What it does"
    Debug.Print "ran"
End Sub
