' &O starts an octal number; up to &O177777 it is a signed Integer.
'> Integer 15
'> Integer -1
'> Long 65536
'> Long 65535
Sub main()
    Debug.Print TypeName(&O17) & " " & &O17
    Debug.Print TypeName(&o177777) & " " & &o177777
    Debug.Print TypeName(&O200000) & " " & &O200000
    Debug.Print TypeName(&O177777&) & " " & &O177777&
End Sub
