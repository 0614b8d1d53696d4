' Environ takes a name, in letters of any case, or a number from 1 on, which gives the name too; what isn't there is empty, and 0 or no name is error 5.
'> C:\Temp C:\Temp
'> [COMPUTERNAME=WORKBENCH] [TEMP=C:\Temp] []
'> []
'> 5
'> 5
Sub main()
    Dim s As String
    Debug.Print Environ("TEMP") & " " & Environ$("temp")
    Debug.Print "[" & Environ(1) & "] [" & Environ(2) & "] [" & Environ(3) & "]"
    Debug.Print "[" & Environ("NOTHING") & "]"
    On Error Resume Next
    s = Environ(0): Debug.Print Err.Number & "": Err.Clear
    s = Environ(""): Debug.Print Err.Number & ""
End Sub
