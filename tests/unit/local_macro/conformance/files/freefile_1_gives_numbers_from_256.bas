' FreeFile(1) looks among 256 to 511, FreeFile(0) among 1 to 255.
'> 256 1 257
Sub main()
    Debug.Print FreeFile(1) & " " & FreeFile(0) & " ";
    Open "C:\a" For Output As #256
    Debug.Print FreeFile(1) & ""
End Sub
