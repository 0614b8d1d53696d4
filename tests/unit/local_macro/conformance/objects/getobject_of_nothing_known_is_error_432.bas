' GetObject of a file or class that isn't there is error 432.
'! 432 File name or class name not found during Automation operation
Sub main()
    Dim o As Object
    Set o = GetObject("C:\none.doc")
End Sub
