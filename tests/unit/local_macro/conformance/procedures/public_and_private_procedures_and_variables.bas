' Public, Private and no word at all make no difference within a module.
'> 6
Private one As Long
Public two As Long
Global three As Long

Private Function Sum() As Long
    Sum = one + two + three
End Function

Public Sub main()
    one = 1
    two = 2
    three = 3
    Debug.Print Sum & ""
End Sub
