' With 0 or a number beyond the list, On n GoTo does nothing.
'> passed 0
'> passed 3
Sub main()
    Dim n As Long
    n = 0
    On n GoTo Here, Here
    Debug.Print "passed 0"
    n = 3
    On n GoTo Here, Here
    Debug.Print "passed 3"
    Exit Sub
Here:
    Debug.Print "jumped"
End Sub
